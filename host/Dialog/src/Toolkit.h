#pragma once

#include "CATEvent.h"
#include "CATUnicodeString.h"

#include <QStringList>

/// Whether there is a toolkit to make windows with.
bool HasToolkit();

inline QString ToQt(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

inline QString ToQt(const CATUnicodeString& text)
{
    return ToQt(text.View());
}

inline CATUnicodeString FromQt(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    return CATUnicodeString(
        std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

/// A text that the toolkit shall not search for accelerator keys: "R&D" stays "R&D".
QString WithoutAccelerators(QString text);

/// The dialog library's own texts (catalog "CATDialog").
QString DialogMessage(const char* key, const char* defaultText, const QStringList& parameters = {});

/// While one stands on the stack, what the toolkit says comes from the program and not from the
/// user: values that the program sets, and widgets that go away. SendFromUser sends nothing then.
class Quiet
{
public:
    Quiet() { ++s_depth; }
    ~Quiet() { --s_depth; }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;
    static bool IsOn() { return s_depth > 0; }

private:
    static int s_depth;
};

void SendFromUser(CATCommand& sender, const CATEvent& event, int detail = 0);
