#pragma once

#include "CATUnicodeString.h"

#include <QString>

/// Between the session's texts and the toolkit's.
inline QString ToQString(const CATUnicodeString& text)
{
    const std::string_view bytes = text.View();
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

inline CATUnicodeString FromQString(const QString& text)
{
    return CATUnicodeString(text.toStdString());
}
