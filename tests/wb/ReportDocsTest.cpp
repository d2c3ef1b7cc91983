#include "PageExamples.h"

using testing::HasSubstr;

using ReportDocs = PageExamples;

TEST_F(ReportDocs, PageShowsWhatTheProgramPrints)
{
    ExpectPage(WB_SOURCE_DIR "/docs/reports.md", 17);
    EXPECT_THAT(folder.Read("mine.xml"), HasSubstr("MassUnit=\"g\""))
        << "the last command has written it";
}
