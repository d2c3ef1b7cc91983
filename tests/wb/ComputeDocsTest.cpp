#include "PageExamples.h"

using ComputeDocs = PageExamples;

TEST_F(ComputeDocs, PageShowsWhatTheProgramPrints)
{
    ExpectPage(WB_SOURCE_DIR "/docs/compute.md", 6);
}
