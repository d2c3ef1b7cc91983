#include "CATDlgNotify.h"

#include "CATDiagnostics.h"
#include "CATSession.h"
#include "DialogWindow.h"
#include "StyleWords.h"
#include "Toolkit.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>

#include <array>

namespace
{

enum class Kind
{
    Message,
    Warning,
    Error,
    Choice,
    Question,
    QuestionWithCancel
};
constexpr std::array kNotifyWords{
    StyleWord<Kind>{0, Kind::Message},
    StyleWord<Kind>{0x8000000, Kind::Warning},
    StyleWord<Kind>{0x10000000, Kind::Error},
    StyleWord<Kind>{0x8800200, Kind::Choice},
    StyleWord<Kind>{CATDlgNotify::kQuestion, Kind::Question},
    StyleWord<Kind>{CATDlgNotify::kQuestionWithCancel, Kind::QuestionWithCancel}};

struct Button
{
    const char* objectName;
    const char* key;
    const char* defaultText;
    QDialogButtonBox::ButtonRole role;
    int answer;
};
using Buttons = std::span<const Button>;
constexpr std::array kOkButton{
    Button{"OkButton", "Button.Ok", "@OK", QDialogButtonBox::AcceptRole, 1}};
constexpr std::array kChoiceButtons{
    Button{"YesButton", "Button.Yes", "@Yes", QDialogButtonBox::YesRole, 3},
    Button{"NoButton", "Button.No", "@No", QDialogButtonBox::NoRole, 4}};
constexpr std::array kQuestionButtons{
    Button{"YesButton", "Button.Yes", "@Yes", QDialogButtonBox::YesRole, 1},
    Button{"NoButton", "Button.No", "@No", QDialogButtonBox::NoRole, 2}};
constexpr std::array kButtonsWithCancel{
    kQuestionButtons[0], kQuestionButtons[1],
    Button{"CancelButton", "Button.Cancel", "@Cancel", QDialogButtonBox::RejectRole, 5}};

struct KindLook
{
    QStyle::StandardPixmap icon;
    Buttons buttons; ///< the first is the usual one; a box that is closed answers as the last
    bool HasCancel() const { return buttons.size() > 2; }
    int Yes() const { return buttons.front().answer; }
    int No() const { return buttons[std::min<std::size_t>(1, buttons.size() - 1)].answer; }
    int Closed() const { return buttons.back().answer; }
};

// In the order of Kind.
constexpr std::array kLooks{
    KindLook{QStyle::SP_MessageBoxInformation, kOkButton},
    KindLook{QStyle::SP_MessageBoxWarning, kOkButton},
    KindLook{QStyle::SP_MessageBoxCritical, kOkButton},
    KindLook{QStyle::SP_MessageBoxQuestion, kChoiceButtons},
    KindLook{QStyle::SP_MessageBoxQuestion, kQuestionButtons},
    KindLook{QStyle::SP_MessageBoxQuestion, kButtonsWithCancel},
};

const KindLook& LookOfStyle(int style)
{
    return kLooks[static_cast<std::size_t>(LookOf<Kind>(style, kNotifyWords, Kind::Message))];
}

/// The text of a box: wrapped, selectable, scrolled when it is long.
class MessageText : public QScrollArea
{
public:
    explicit MessageText(QWidget* parent) : QScrollArea(parent), m_label(new QLabel)
    {
        m_label->setObjectName(QStringLiteral("Text"));
        m_label->setTextFormat(Qt::PlainText);
        m_label->setWordWrap(true);
        m_label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        m_label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        setWidget(m_label); // the area deletes it
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }

    void SetText(const QString& text)
    {
        m_label->setText(text);
        updateGeometry();
    }

    QSize sizeHint() const override
    {
        const QFontMetrics metrics = m_label->fontMetrics();
        int longest = 0;
        for (const QString& line : m_label->text().split(QLatin1Char('\n'))) {
            longest = std::max(longest, metrics.horizontalAdvance(line));
        }
        const int character = metrics.averageCharWidth();
        const int width = std::clamp(longest + character, 30 * character, 72 * character);
        const int most = QApplication::primaryScreen()->availableSize().height() / 2;
        const int height = m_label->heightForWidth(width) + metrics.descent();
        const int bar = height > most ? verticalScrollBar()->sizeHint().width() : 0;
        return {width + bar, std::min(height, most)};
    }

    QSize minimumSizeHint() const override { return sizeHint().boundedTo(QSize(200, 60)); }

private:
    QLabel* m_label;
};

CATDlgNotify::Answerer& TheAnswerer()
{
    static CATDlgNotify::Answerer answerer;
    return answerer;
}

} // namespace

struct CATDlgNotify::Box
{
    CATUnicodeString text;
    QPointer<MessageText> label;
    int answer = 0;
    bool isBlocking = false;
};

CATDlgNotify::CATDlgNotify(CATCommand* parent, const CATString& name, int style)
    : CATDlgDialog(parent, name, style), m_box(std::make_unique<Box>())
{
    SetTitle(name);
    auto* window = dynamic_cast<DialogWindow*>(Widget());
    if (window == nullptr) {
        return;
    }
    const KindLook& look = LookOfStyle(style);
    m_box->answer = look.Closed();
    // A box is the question itself: nobody is asked whether it may go.
    window->SetMayClose({});
    auto* grid = qobject_cast<QGridLayout*>(window->Content()->layout());
    auto* icon = new QLabel(window->Content());
    const int size = window->style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    icon->setPixmap(window->style()->standardIcon(look.icon).pixmap(size, size));
    m_box->label = new MessageText(window->Content());
    grid->addWidget(icon, 0, 0, Qt::AlignTop);
    grid->addWidget(m_box->label, 0, 1);
    grid->setHorizontalSpacing(12);
    grid->setContentsMargins(14, 14, 14, 8);
    for (const Button& row : look.buttons) {
        QPushButton* button =
            window->Buttons()->addButton(DialogMessage(row.key, row.defaultText), row.role);
        button->setObjectName(QString::fromUtf8(row.objectName));
        button->setAutoDefault(false);
        if (row.answer == look.Yes()) {
            button->setFocus();
        }
        QObject::connect(button, &QPushButton::clicked, window,
                         [this, window, answer = row.answer] {
                             m_box->answer = answer;
                             window->close();
                         });
    }
    Subscribe(this, WindowClosed, [this](const CATNotification&) {
        if (!m_box->isBlocking) {
            RequestDelayedDestruction();
        }
    });
}

CATDlgNotify::~CATDlgNotify() = default;

void CATDlgNotify::SetText(const CATUnicodeString& text)
{
    m_box->text = text;
    if (m_box->label != nullptr) {
        m_box->label->SetText(ToQt(text));
    }
}

void CATDlgNotify::SetChoices(const CATUnicodeString& yes, const CATUnicodeString& no)
{
    for (const auto& [name, text] : {std::pair("YesButton", yes), std::pair("NoButton", no)}) {
        QWidget* window = Widget();
        auto* button =
            window == nullptr ? nullptr : window->findChild<QPushButton*>(QString::fromUtf8(name));
        if (button != nullptr) {
            button->setText(WithoutAccelerators(ToQt(text)));
        }
    }
}

std::optional<int> CATDlgNotify::AskAnswerer(bool blocking) const
{
    if (TheAnswerer()) {
        const KindLook& look = LookOfStyle(Style());
        const auto cancel = look.HasCancel() ? std::optional(look.Closed()) : std::nullopt;
        if (auto answer = TheAnswerer()(
                {Name(), Title(), m_box->text, Style(), blocking, look.Yes(), look.No(), cancel})) {
            return answer;
        }
    }
    if (Widget() == nullptr) {
        CATDiagnosticErrors().Line(Title(), ": ", m_box->text);
        return LookOfStyle(Style()).Closed();
    }
    return std::nullopt;
}

void CATDlgNotify::DisplayNonBlocking()
{
    m_box->isBlocking = false;
    if (AskAnswerer(false)) {
        RequestDelayedDestruction();
        return;
    }
    BringToFront();
}

int CATDlgNotify::DisplayBlocking()
{
    if (const auto answer = AskAnswerer(true)) {
        return *answer;
    }
    m_box->isBlocking = true;
    m_box->answer = LookOfStyle(Style()).Closed();
    auto* window = dynamic_cast<DialogWindow*>(Widget());
    window->setWindowModality(Qt::ApplicationModal);
    const CATSession::NestedLoop nested;
    QEventLoop loop;
    window->SetOnClosed([&loop] { loop.quit(); });
    BringToFront();
    loop.exec();
    // The program may end while the box is up: then it is closed without an answer.
    window->SetOnClosed([this] { SendFromUser(*this, WindowClosed); });
    window->hide();
    return m_box->answer;
}

void CATDlgNotify::SetAnswerer(Answerer answerer)
{
    TheAnswerer() = std::move(answerer);
}
