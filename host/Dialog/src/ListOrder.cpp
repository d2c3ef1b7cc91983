#include "ListOrder.h"

#include "CATNumberLocale.h"
#include "Toolkit.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <numeric>
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

bool IsEmptyCell(std::string_view text)
{
    return text.empty() || text == "---";
}

/// The number that a cell begins with. Words that the C library would read as numbers ("nan",
/// "inf", as in "Nancy") are texts here.
std::optional<double> NumberOf(std::string_view text)
{
    const std::string_view separator = CATDecimalSeparator();
    const bool begins = !text.empty() && (std::string_view("0123456789+-").find(text.front()) !=
                                              std::string_view::npos ||
                                          text.starts_with(separator));
    double value = 0.0;
    if (!begins || CATReadReal(text, value) != 1) {
        return std::nullopt;
    }
    return value;
}

/// The row indices sorted by keys that are parallel to `shown`.
template <class Key, class Less>
std::vector<int> SortedBy(const std::vector<int>& shown,
                          const std::vector<std::optional<Key>>& keys, ListSort sort, Less less)
{
    std::vector<std::size_t> places(shown.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::ranges::stable_sort(places, [&](std::size_t a, std::size_t b) {
        if (!keys[a] || !keys[b]) {
            return keys[a].has_value() && !keys[b].has_value();
        }
        return sort == ListSort::Up ? less(*keys[a], *keys[b]) : less(*keys[b], *keys[a]);
    });
    std::vector<int> sorted(shown.size());
    std::ranges::transform(places, sorted.begin(), [&](std::size_t place) { return shown[place]; });
    return sorted;
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

} // namespace

const CATUnicodeString& CellText(const ListRows& rows, std::size_t row, std::size_t column)
{
    static const CATUnicodeString kEmpty;
    if (row >= rows.size() || column >= rows[row].Items().size()) {
        return kEmpty;
    }
    return rows[row].Items()[column];
}

std::vector<std::string> FilterWords(const CATUnicodeString& filter)
{
    std::vector<std::string> words;
    for (const QString& word : ToQt(filter).toLower().split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        words.push_back(word.toStdString());
    }
    return words;
}

bool RowPasses(const CATListValCATUnicodeString& row, const std::vector<std::string>& words)
{
    return std::ranges::all_of(words, [&](const std::string& word) {
        return std::ranges::any_of(row.Items(), [&](const CATUnicodeString& cell) {
            return HoldsWord(cell.View(), word);
        });
    });
}

std::vector<int> ShownRows(const ListRows& rows, const std::vector<std::string>& filterWords,
                           ListSort sort, std::size_t column)
{
    std::vector<int> shown;
    shown.reserve(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (RowPasses(rows[row], filterWords)) {
            shown.push_back(static_cast<int>(row));
        }
    }
    if (sort == ListSort::AsDelivered) {
        return shown;
    }

    std::vector<std::optional<double>> numbers;
    numbers.reserve(shown.size());
    bool allNumbers = true;
    for (const int row : shown) {
        const std::string_view text = CellText(rows, static_cast<std::size_t>(row), column).View();
        numbers.push_back(NumberOf(text));
        allNumbers = allNumbers && (numbers.back().has_value() || IsEmptyCell(text));
    }
    if (allNumbers) {
        return SortedBy(shown, numbers, sort, std::less<double>());
    }

    const QCollator collator = MakeCollator();
    std::vector<std::optional<QCollatorSortKey>> texts;
    texts.reserve(shown.size());
    for (const int row : shown) {
        const CATUnicodeString& text = CellText(rows, static_cast<std::size_t>(row), column);
        texts.push_back(IsEmptyCell(text.View()) ? std::nullopt
                                                 : std::optional(collator.sortKey(ToQt(text))));
    }
    return SortedBy(shown, texts, sort, [](const QCollatorSortKey& a, const QCollatorSortKey& b) {
        return a.compare(b) < 0;
    });
}
