#include "ProgressBar.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace
{

/// Everything that was written on a terminal, in order.
class Terminal
{
public:
    Terminal() : m_file(open_memstream(&m_text, &m_size)) {}
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal()
    {
        std::fclose(m_file);
        std::free(m_text);
    }
    std::FILE* File() { return m_file; }
    std::string Text()
    {
        std::fflush(m_file);
        return {m_text, m_size};
    }

private:
    char* m_text = nullptr;
    std::size_t m_size = 0;
    std::FILE* m_file;
};

} // namespace

TEST(ProgressLine, KnownEndIsABarAndAPercentage)
{
    EXPECT_EQ(ProgressLine("reading", 0, 200),
              "reading     [------------------------------]   0 %");
    EXPECT_EQ(ProgressLine("reading", 100, 200),
              "reading     [###############---------------]  50 %");
    EXPECT_EQ(ProgressLine("writing", 199, 200),
              "writing     [#############################-]  99 %");
    EXPECT_EQ(ProgressLine("writing", 200, 200),
              "writing     [##############################] 100 %");
}

TEST(ProgressLine, LongStageStandsApartFromItsBar)
{
    EXPECT_EQ(ProgressLine("reading the product", 0, 200),
              "reading the product [------------------------------]   0 %");
}

TEST(ProgressLine, MoreThanTheEndIsTheEnd)
{
    EXPECT_EQ(ProgressLine("reading", 300, 200), ProgressLine("reading", 200, 200));
}

TEST(ProgressLine, UnknownEndIsMegabytes)
{
    EXPECT_EQ(ProgressLine("reading", 12900000, 0), "reading     12 MB");
}

TEST(ProgressLine, StageWithoutNumbersStandsAlone)
{
    EXPECT_EQ(ProgressLine("converting", 0, 0), "converting");
}

TEST(ProgressBar, ShorterLineTakesAwayWhatALongerOneLeft)
{
    Terminal terminal;
    ProgressBar bar(terminal.File());
    bar.Show("reading", 5000000, 0);
    bar.Show("read");
    EXPECT_EQ(terminal.Text(), "\rreading     5 MB"
                               "\rread            ");
}

TEST(ProgressBar, SameLineIsWrittenOnce)
{
    Terminal terminal;
    ProgressBar bar(terminal.File());
    bar.Show("reading", 1000, 1000000);
    bar.Show("reading", 1001, 1000000);
    EXPECT_EQ(terminal.Text(), "\r" + ProgressLine("reading", 1000, 1000000));
}

TEST(ProgressBar, ClearLeavesABlankLineAndTheCursorAtItsBeginning)
{
    Terminal terminal;
    {
        ProgressBar bar(terminal.File());
        bar.Show("sorting");
        bar.Clear();
        EXPECT_EQ(terminal.Text(), "\rsorting\r       \r");
        bar.Clear();
    }
    EXPECT_EQ(terminal.Text(), "\rsorting\r       \r") << "there was nothing left to clear";
}

TEST(ProgressBar, EndClears)
{
    Terminal terminal;
    {
        ProgressBar bar(terminal.File());
        bar.Show("sorting");
    }
    EXPECT_EQ(terminal.Text(), "\rsorting\r       \r");
}

TEST(ProgressBar, NoTerminalIsNothingShown)
{
    ProgressBar bar(nullptr);
    bar.Show("reading", 1, 2);
    bar.Clear();
}
