#include "CATDlgApplication.h"

#include <gmock/gmock.h>

#include <optional>

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    // Who only asks for the names of the tests needs no windows.
    std::optional<CATDlgApplication> application;
    if (!testing::GTEST_FLAG(list_tests)) {
        application.emplace(argc, argv);
    }
    return RUN_ALL_TESTS();
}
