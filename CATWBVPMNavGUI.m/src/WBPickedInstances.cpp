#include "WBPickedInstances.h"

#include "CATMsgCatalog.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace
{

CATUnicodeString ShownPath(const CATUnicodeString& root, const WBPickedInstance& picked)
{
    std::string path = root.ToStdString();
    for (auto name = picked.path.rbegin(); name != picked.path.rend(); ++name) {
        path += "/";
        path += name->View();
    }
    path += "/";
    path += picked.instance.View();
    return path;
}

/// Characters that separate names or stand for others on some system.
bool IsRefusedInFileNames(char letter)
{
    constexpr std::string_view kRefused = "/\\:*?\"<>|";
    return kRefused.find(letter) != std::string_view::npos;
}

/// The text as a piece of a file's name, of a length that leaves room for what stands around it.
CATUnicodeString PieceOfFileName(const CATUnicodeString& text)
{
    constexpr std::size_t kMostBytes = 90;
    std::string piece = text.ToStdString();
    std::ranges::replace_if(piece, IsRefusedInFileNames, '-');
    CATUnicodeString shortened = piece;
    while (shortened.ByteLength() > kMostBytes) {
        shortened.Remove(shortened.Length() - 1, 1);
    }
    return shortened;
}

} // namespace

bool WBPickedInstances::Add(WBPickedInstance picked)
{
    if (std::ranges::find(m_items, picked) != m_items.end()) {
        return false;
    }
    m_items.push_back(std::move(picked));
    return true;
}

void WBPickedInstances::Remove(int position)
{
    if (position >= 1 && position <= static_cast<int>(m_items.size())) {
        m_items.erase(m_items.begin() + position - 1);
    }
}

void WBPickedInstances::SetRoot(const CATUnicodeString& root)
{
    if (!(root == m_root)) {
        m_root = root;
        m_items.clear();
    }
}

WBPanelTable WBPickedInstances::Table() const
{
    WBPanelTable table;
    table.columns = {{WBReportText("Instance.Title", "@Instance"), {}, false},
                     {WBReportText("Part.Title", "@Part"), {}, false},
                     {WBReportText("Version.Title", "@Version"), {}, false},
                     {WBReportText("Path.Title", "@Path"),
                      WBReportText("Path.Tooltip", "@From the product down to the instance"),
                      false}};
    for (const WBPickedInstance& picked : m_items) {
        table.rows.push_back(Row(picked));
    }
    return table;
}

WBPanelRow WBPickedInstances::Row(const WBPickedInstance& picked) const
{
    return {picked.instance, picked.part, picked.version, ShownPath(m_root, picked)};
}

CATUnicodeString WBPickedInstances::EmptyText() const
{
    return m_root.IsEmpty()
               ? WBReportText("Instances.NoRoot", "@No product is open")
               : WBReportText("Instances.None", "@Nothing picked: the report is about all of /p1",
                              {m_root});
}

CATUnicodeString WBPickedInstances::SelectionText() const
{
    CATUnicodeString text = PieceOfFileName(m_root);
    if (!m_items.empty()) {
        text += " " + PieceOfFileName(m_items.front().instance);
    }
    if (m_items.size() > 1) {
        text += " +" + CATUnicodeString::FromInt(static_cast<int>(m_items.size()) - 1);
    }
    return text;
}

CATUnicodeString WBReportText(const char* key, const char* defaultText,
                              const CATListValCATUnicodeString& parameters)
{
    // Not named after the panel: questions before long computations have the catalog of that name.
    return CATMsgCatalog::BuildMessage("WBReportPanel", key, defaultText, parameters);
}
