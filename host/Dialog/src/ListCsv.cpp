#include "ListCsv.h"

#include <QRegularExpression>

std::string CsvText(const std::vector<QStringList>& lines)
{
    static const QRegularExpression kNeedsQuotes(QStringLiteral("[,\"\r\n]"));
    QString text;
    for (const QStringList& line : lines) {
        QStringList fields;
        for (QString field : line) {
            if (field.contains(kNeedsQuotes)) {
                field = QLatin1Char('"') + field.replace(QLatin1Char('"'), QLatin1String("\"\"")) +
                        QLatin1Char('"');
            }
            fields.append(field);
        }
        text += fields.join(QLatin1Char(',')) + QLatin1String("\r\n");
    }
    return text.toStdString();
}

QString TabbedText(const std::vector<QStringList>& lines)
{
    static const QRegularExpression kBreaks(QStringLiteral("[\t\r\n]+"));
    QStringList rows;
    for (const QStringList& line : lines) {
        QStringList fields;
        for (QString field : line) {
            fields.append(field.replace(kBreaks, QStringLiteral(" ")));
        }
        rows.append(fields.join(QLatin1Char('\t')));
    }
    return rows.join(QLatin1Char('\n'));
}
