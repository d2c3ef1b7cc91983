#include "ListOrder.h"

#include "ListNumber.h"
#include "Toolkit.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <optional>

namespace
{

char Lower(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool IsAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

/// `word` is in lower case.
bool HoldsWord(std::string_view text, const std::string& word)
{
    if (IsAscii(word)) {
        return std::search(text.begin(), text.end(), word.begin(), word.end(),
                           [](char a, char b) { return Lower(a) == b; }) != text.end();
    }
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
        .toLower()
        .contains(QString::fromStdString(word));
}

/// A row with what it is sorted by.
template <class Key>
struct KeyedRow
{
    Key key;
    int row;
};

/// The rows of the keys in order, and then those without one, as they came.
template <class Key, class Less>
std::vector<int> Ordered(std::vector<KeyedRow<Key>> keyed, const std::vector<int>& withoutKey,
                         ListSort sort, Less less)
{
    const auto before = [&less](const KeyedRow<Key>& a, const KeyedRow<Key>& b) {
        return less(a.key, b.key);
    };
    if (sort == ListSort::Up) {
        std::stable_sort(keyed.begin(), keyed.end(), before);
    } else {
        std::stable_sort(keyed.begin(), keyed.end(),
                         [&before](const auto& a, const auto& b) { return before(b, a); });
    }
    std::vector<int> rows(keyed.size());
    std::ranges::transform(keyed, rows.begin(),
                           [](const KeyedRow<Key>& entry) { return entry.row; });
    rows.insert(rows.end(), withoutKey.begin(), withoutKey.end());
    return rows;
}

/// The rows by the numbers in their cells; none when one holds another text.
std::optional<std::vector<int>> OrderedByNumber(const ListCells& cells,
                                                const std::vector<int>& rows, ListSort sort,
                                                std::size_t column)
{
    std::vector<KeyedRow<double>> keyed;
    std::vector<int> withoutKey;
    keyed.reserve(rows.size());
    for (const int row : rows) {
        const std::string_view text = cells.Text(static_cast<std::size_t>(row), column);
        if (IsEmptyCell(text)) {
            withoutKey.push_back(row);
        } else if (const std::optional<double> number = NumberOf(text)) {
            keyed.push_back({*number, row});
        } else {
            return std::nullopt;
        }
    }
    return Ordered(std::move(keyed), withoutKey, sort, std::less<double>());
}

QCollator MakeCollator()
{
    // The plain C locale would put all capitals before all small letters.
    const QLocale user = QLocale().language() == QLocale::C ? QLocale(QLocale::English) : QLocale();
    QCollator collator(user);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator;
}

std::vector<int> OrderedByText(const ListCells& cells, const std::vector<int>& rows, ListSort sort,
                               std::size_t column)
{
    const QCollator collator = MakeCollator();
    std::vector<KeyedRow<QCollatorSortKey>> keyed;
    std::vector<int> withoutKey;
    keyed.reserve(rows.size());
    for (const int row : rows) {
        const std::string_view text = cells.Text(static_cast<std::size_t>(row), column);
        if (IsEmptyCell(text)) {
            withoutKey.push_back(row);
        } else {
            keyed.push_back({collator.sortKey(ToQt(text)), row});
        }
    }
    return Ordered(
        std::move(keyed), withoutKey, sort,
        [](const QCollatorSortKey& a, const QCollatorSortKey& b) { return a.compare(b) < 0; });
}

} // namespace

std::vector<std::string> FilterWords(const CATUnicodeString& filter)
{
    std::vector<std::string> words;
    for (const QString& word : ToQt(filter).toLower().split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        words.push_back(word.toStdString());
    }
    return words;
}

bool RowPasses(const ListCells& cells, std::size_t row, const std::vector<std::string>& words)
{
    return std::ranges::all_of(words, [&](const std::string& word) {
        for (std::size_t column = 0; column < cells.ColumnCount(); ++column) {
            if (HoldsWord(cells.Text(row, column), word)) {
                return true;
            }
        }
        return false;
    });
}

std::vector<int> ShownRows(const ListCells& cells, const std::vector<std::string>& filterWords,
                           ListSort sort, std::size_t column)
{
    std::vector<int> shown;
    shown.reserve(cells.RowCount());
    for (std::size_t row = 0; row < cells.RowCount(); ++row) {
        if (RowPasses(cells, row, filterWords)) {
            shown.push_back(static_cast<int>(row));
        }
    }
    if (sort == ListSort::AsDelivered) {
        return shown;
    }
    const std::optional<std::vector<int>> byNumber = OrderedByNumber(cells, shown, sort, column);
    return byNumber ? *byNumber : OrderedByText(cells, shown, sort, column);
}
