#include "Toolkit.h"

#include "CATCommand.h"
#include "CATMsgCatalog.h"

#include <QApplication>

int Quiet::s_depth = 0;

bool HasToolkit()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

QString WithoutAccelerators(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString DialogMessage(const char* key, const char* defaultText, const QStringList& parameters)
{
    CATListValCATUnicodeString values;
    for (const QString& parameter : parameters) {
        values.Append(FromQt(parameter));
    }
    return ToQt(CATMsgCatalog::BuildMessage("CATDialog", key, defaultText, values));
}

void SendFromUser(CATCommand& sender, const CATEvent& event, int detail)
{
    if (!Quiet::IsOn()) {
        sender.Send(event, detail);
    }
}
