#pragma once

#include "CATDlgApplication.h"
#include "CATDlgDialog.h"
#include "CATDlgFile.h"
#include "CATDlgNotify.h"
#include "CATNumberLocale.h"
#include "Toolkit.h"

#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <QColor>

#include <cmath>
#include <vector>

/// A window whose texts come from the resource file that the test names.
class TestWindow : public CATDlgDialog
{
public:
    TestWindow(CATCommand* parent, const CATString& name, int style = 0x4001,
               std::vector<CATString> files = {})
        : CATDlgDialog(parent, name, style), m_files(std::move(files))
    {}
    CATString GetResourceFilename(int level) const override
    {
        const auto index = static_cast<std::size_t>(level);
        return index < m_files.size() ? m_files[index] : CATString();
    }

private:
    std::vector<CATString> m_files;
};

/// A command tree of the test's own, with one window in it; all of it goes away with the test.
class DialogSession : public testing::Test
{
protected:
    DialogSession() : m_window(*new TestWindow(&m_root, "TestWindow")) {}
    ~DialogSession() override
    {
        CATDlgNotify::SetAnswerer({});
        CATDlgFile::SetChooser({});
        CATUseNumberLocale("C.UTF-8");
    }

    /// What stands in the event loop happens, as after the user paused for a moment.
    static void Settle()
    {
        for (int round = 0; round < 5; ++round) {
            CATDlgApplication::ProcessEvents();
        }
    }
    void Show()
    {
        m_window.SetVisibility(true);
        Settle();
    }
    /// Notes the details of an event's notifications.
    std::vector<int>& Notes(CATCommand& publisher, const CATEvent& event)
    {
        m_notes.push_back(std::make_unique<std::vector<int>>());
        std::vector<int>& notes = *m_notes.back();
        m_root.Subscribe(&publisher, event, [&notes](const CATNotification& notification) {
            notes.push_back(notification.detail);
        });
        return notes;
    }
    static void Click(CATDialog& control)
    {
        QTest::mouseClick(control.Widget(), Qt::LeftButton, {},
                          QPoint(8, control.Widget()->height() / 2));
    }
    template <class W>
    static W* Child(CATDialog& dialog, const char* name)
    {
        return dialog.Widget()->findChild<W*>(QString::fromUtf8(name));
    }

    std::vector<std::unique_ptr<std::vector<int>>> m_notes;
    CATCommand m_root{nullptr, "TestRoot"};
    TestWindow& m_window;
};

/// How much brighter one colour is than the other, as reading guidelines count it.
inline double Contrast(const QColor& a, const QColor& b)
{
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const double brighter = std::max(luminance(a), luminance(b));
    const double darker = std::min(luminance(a), luminance(b));
    return (brighter + 0.05) / (darker + 0.05);
}
