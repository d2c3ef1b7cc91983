#include "PageExamples.h"
#include "WBStore.h"

using HistoryDocs = PageExamples;

TEST_F(HistoryDocs, PageShowsWhatTheProgramPrints)
{
    ASSERT_EQ(Run("import '" WB_SOURCE_DIR "/data/light_aeroplane.csv' --into planes.db --user kim")
                  .status,
              0);
    // What the page says that anna has applied in the main panel.
    {
        const auto store = wb::Store::Open(folder.At("planes.db")).store;
        const wb::RowId placards = store->FindPart("FIN-300", "A")->id;
        store->PutPending(
            "anna",
            {{wb::OwnerKind::Part, placards, {"Estimated", "mass"}, "0.35", "0.42", {}},
             {wb::OwnerKind::Part, placards, {"Estimated", "centre"}, "", "900;0;-200", {}}});
    }
    ExpectPage(WB_SOURCE_DIR "/docs/history.md", 8);
}
