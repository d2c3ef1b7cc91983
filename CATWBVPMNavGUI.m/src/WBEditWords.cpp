#include "WBEditWords.h"

#include "WBPanelTexts.h"

#include <array>

namespace
{

struct Words
{
    int WBEditCounts::*count;
    const char* sign;
    const char* oneKey;
    const char* one;
    const char* manyKey;
    const char* many;
};
constexpr std::array kWords{
    Words{&WBEditCounts::problems, "\u2715", "Edits.Problem", "@1 entry cannot be taken.",
          "Edits.Problems", "@/p1 entries cannot be taken."},
    Words{&WBEditCounts::edits, "\u270e", "Edits.One", "@1 edit is not applied.", "Edits.Many",
          "@/p1 edits are not applied."},
    Words{&WBEditCounts::conflicts, "\u26a0", "Edits.Conflict",
          "@1 change cannot be saved: see the page Changes.", "Edits.Conflicts",
          "@/p1 changes cannot be saved: see the page Changes."},
    Words{&WBEditCounts::unsaved, "\u25cf", "Edits.UnsavedOne", "@1 change is not saved.",
          "Edits.UnsavedMany", "@/p1 changes are not saved."}};

CATUnicodeString Said(const Words& words, int count)
{
    return count == 1 ? WBPanelText(words.oneKey, words.one)
                      : WBPanelText(words.manyKey, words.many, {CATUnicodeString::FromInt(count)});
}

} // namespace

CATUnicodeString WBEditWords(const WBEditCounts& counts)
{
    if (!counts.isAnythingStated) {
        return WBPanelText("Edits.None",
                           "@Nothing can be edited: the server does not say what is stated.");
    }
    CATUnicodeString line;
    for (const Words& words : kWords) {
        if (counts.*words.count > 0) {
            line += line.IsEmpty() ? "" : "   ";
            line += CATUnicodeString(words.sign) + " " + Said(words, counts.*words.count);
        }
    }
    if (counts.isStandardPart && counts.edits > 0) {
        line += "   ";
        line += WBPanelText("Edits.StandardPart",
                            "@A standard part: change it only if you look after it.");
    }
    return line;
}

CATUnicodeString WBUnappliedWords(int edits)
{
    return Said(kWords[1], edits);
}
