#pragma once

#include "StoryScript.h"

#include "CATUnicodeString.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

class CATDialog;
class WorkbenchWindow;

/// Plays a story in a workbench: acts on its windows as a person's mouse and keyboard would, and
/// checks what they show. It stops at the first step that cannot be done or does not hold.
class StoryPlayer : public QObject
{
public:
    explicit StoryPlayer(WorkbenchWindow& workbench);
    ~StoryPlayer() override;
    StoryPlayer(const StoryPlayer&) = delete;
    StoryPlayer& operator=(const StoryPlayer&) = delete;

    /// True when every step held. Otherwise the failure names the story's line and what was seen.
    bool Play(const std::string& path);
    const std::string& Failure() const { return m_failure; }

protected:
    /// Notes in which order windows are shown.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    /// A box that the session showed, until a step has expected it.
    struct Box
    {
        std::string text; // title, line end, text
        bool expected = false;
    };
    using Words = std::vector<std::string>;
    using Handler = std::string (StoryPlayer::*)(const Words& words);

    // Each answers what went wrong, or the empty text.
    std::string Open(const Words& words);
    std::string Workshop(const Words& words);
    std::string Start(const Words& words);
    std::string Menu(const Words& words);
    std::string Pick(const Words& words);
    std::string Click(const Words& words);
    std::string Check(const Words& words);
    std::string Type(const Words& words);
    std::string Select(const Words& words);
    std::string Key(const Words& words);
    std::string Sort(const Words& words);
    std::string Resize(const Words& words);
    std::string Units(const Words& words);
    std::string Expect(const Words& words);
    std::string ExpectCell(const Words& words);
    std::string ExpectTooltip(const Words& words);
    std::string ExpectBox(const Words& words);
    std::string ExpectCopied(const Words& words);
    std::string ExpectFile(const Words& words);
    std::string Answer(const Words& words);
    std::string File(const Words& words);
    std::string Close(const Words& words);
    std::string Shot(const Words& words);
    std::string Dump(const Words& words);

    std::string Run(const StoryStep& step);
    std::string UnexpectedBox() const;

    WorkbenchWindow& m_workbench;
    std::deque<Box> m_boxes;
    std::deque<std::string> m_answers; // of questions to come
    std::deque<std::string> m_files;   // of file boxes to come
    std::string m_failure;
    std::filesystem::path m_folder; // the story's own
    QPointer<QWidget> m_opened;     // the window that the present step has shown last
    int m_shown = 0;
};
