// Saves the client's settings once, in a process of its own, for tests: a group of instances that
// tells a round in every entry.

#include "SettingsRound.h"

int main(int argc, char** argv)
{
    return argc > 1 && SaveSettingsRound(argv[1]) ? 0 : 1;
}
