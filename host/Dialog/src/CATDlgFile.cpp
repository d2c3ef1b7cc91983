#include "CATDlgFile.h"

#include "CATFileAccess.h"
#include "CATSession.h"
#include "Toolkit.h"

#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QTimer>

const CATEvent CATDlgFile::FileChosen("FileChosen");
const CATEvent CATDlgFile::Cancelled("FileCancelled");

namespace
{

CATDlgFile::Chooser& TheChooser()
{
    static CATDlgFile::Chooser chooser;
    return chooser;
}

} // namespace

struct CATDlgFile::Choice
{
    Mode mode;
    CATUnicodeString typeTitle;
    CATUnicodeString extension;
    CATUnicodeString suggestedName;
    CATUnicodeString directory;
    CATUnicodeString path;
    QPointer<QFileDialog> box;
};

// The window of the base stays hidden: the toolkit's file box stands in its place.
CATDlgFile::CATDlgFile(CATCommand* parent, const CATString& name, Mode mode)
    : CATDlgDialog(parent, name, 0), m_choice(std::make_unique<Choice>())
{
    m_choice->mode = mode;
}

CATDlgFile::~CATDlgFile()
{
    const Quiet quiet;
    delete m_choice->box;
}

void CATDlgFile::SetFileType(const CATUnicodeString& title, const CATUnicodeString& extension)
{
    m_choice->typeTitle = title;
    m_choice->extension = extension;
}

void CATDlgFile::SetSuggestedName(const CATUnicodeString& name)
{
    m_choice->suggestedName = name;
}

void CATDlgFile::SetDirectory(const CATUnicodeString& directory)
{
    m_choice->directory = CATFilePath(directory);
}

std::optional<CATUnicodeString> CATDlgFile::AskChooser() const
{
    if (TheChooser()) {
        if (auto path = TheChooser()({Name(), Title(), m_choice->mode, m_choice->suggestedName,
                                      m_choice->extension, m_choice->directory})) {
            return path;
        }
    }
    return Widget() == nullptr ? std::optional(CATUnicodeString()) : std::nullopt;
}

void CATDlgFile::Finish(const CATUnicodeString& path)
{
    QString chosen = ToQt(path);
    if (!chosen.isEmpty() && m_choice->mode == Mode::Save && !m_choice->extension.IsEmpty() &&
        QFileInfo(chosen).suffix().isEmpty()) {
        chosen += QLatin1Char('.') + ToQt(m_choice->extension);
    }
    m_choice->path = FromQt(chosen);
}

CATUnicodeString CATDlgFile::Path() const
{
    return m_choice->path;
}

void CATDlgFile::Display()
{
    if (const auto path = AskChooser()) {
        Finish(*path);
        if (Widget() != nullptr) {
            // As from a user: after the caller has finished what it is doing.
            QTimer::singleShot(0, Widget(), [this] {
                SendFromUser(*this, m_choice->path.IsEmpty() ? Cancelled : FileChosen);
            });
        }
        return;
    }
    ShowBox();
}

void CATDlgFile::ShowBox()
{
    const QString directory = ToQt(m_choice->directory);
    m_choice->box = new QFileDialog(Widget()->parentWidget(), ToQt(Title()),
                                    QDir(directory).exists() ? directory : QString());
    QFileDialog& box = *m_choice->box;
    box.setObjectName(ToQt(Name()));
    box.setOption(QFileDialog::DontUseNativeDialog);
    box.setOption(QFileDialog::DontConfirmOverwrite);
    box.setAcceptMode(m_choice->mode == Mode::Save ? QFileDialog::AcceptSave
                                                   : QFileDialog::AcceptOpen);
    box.setFileMode(m_choice->mode == Mode::Save ? QFileDialog::AnyFile
                                                 : QFileDialog::ExistingFile);
    if (!m_choice->extension.IsEmpty()) {
        const QString extension = ToQt(m_choice->extension);
        box.setNameFilter(ToQt(m_choice->typeTitle) + QStringLiteral(" (*.") + extension +
                          QLatin1Char(')'));
    }
    if (!m_choice->suggestedName.IsEmpty()) {
        box.selectFile(ToQt(m_choice->suggestedName));
    }
    QObject::connect(&box, &QFileDialog::finished, Widget(), [this](int result) {
        const QStringList files = m_choice->box->selectedFiles();
        Finish(result == QDialog::Accepted && !files.isEmpty() ? FromQt(files.front())
                                                               : CATUnicodeString());
        SendFromUser(*this, m_choice->path.IsEmpty() ? Cancelled : FileChosen);
    });
    box.open();
}

CATUnicodeString CATDlgFile::DisplayBlocking()
{
    if (const auto path = AskChooser()) {
        Finish(*path);
        return Path();
    }
    const CATSession::NestedLoop nested;
    QEventLoop loop;
    ShowBox();
    QObject::connect(m_choice->box, &QFileDialog::finished, &loop, [&loop] { loop.quit(); });
    loop.exec();
    if (m_choice->box != nullptr) {
        m_choice->box->hide();
    }
    return Path();
}

void CATDlgFile::SetChooser(Chooser chooser)
{
    TheChooser() = std::move(chooser);
}
