#pragma once

#include "lifecycle/MyDocumentWindow.h"
#include "platform/Services.h"
#include "support/ScriptedPopUpMenu.h"

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <optional>

// A document window without widgets: records the calls, and ends sheets and alerts when the test says so. It
// has the same contract as the real window.
class ScriptedDocumentWindow : public MyDocumentWindow
{
public:
    // The open alert. Without one, the test fails.
    Foundation::Alert alert() const
    {
        if (!hasAlert()) {
            ADD_FAILURE() << "no alert is shown";
            return {};
        }
        return *m_sheets.front().alert;
    }
    bool hasAlert() const { return !m_sheets.empty() && m_sheets.front().alert; }
    // Answers the alert. The completion has returned when this returns.
    void answer(int returnCode)
    {
        ASSERT_TRUE(hasAlert());
        takeFirst().ended(returnCode);
    }
    // The name of the open sheet. Null if there is none, or if an alert is open.
    QString sheet() const { return m_sheets.empty() ? QString() : m_sheets.front().name; }

    Foundation::Rect frame() const override { return frameNow; }
    void setFrame(const Foundation::Rect &frame, bool) override { frameNow = frame; }
    Foundation::Size minSize() const override { return {560, 340}; }
    bool isToolbarVisible() const override { return toolbarVisible; }
    void setToolbarVisible(bool shown) override { toolbarVisible = shown; }
    void orderOut() override { visible = false; }
    void center() override {}
    void makeKeyAndOrderFront() override { visible = true; }
    void close() override
    {
        closed = true;
        m_sheets.clear();
        m_life.reset();
    }
    void beginSheet(const QString &name, SheetEnd ended) override
    {
        m_sheets.push_back({name, std::nullopt, std::move(ended)});
    }
    void endSheet(const QString &name, int returnCode) override
    {
        if (sheet() == name)
            later(takeFirst().ended, returnCode);
    }
    void endAllSheets() override
    {
        while (!m_sheets.empty())
            later(takeFirst().ended, 0);
    }
    void beginAlert(const Foundation::Alert &alert, Foundation::AlertAnswer answered) override
    {
        m_sheets.push_back({QString(), alert, std::move(answered)});
    }
    void beginSavePanel(const QString &, std::function<void(QString)> ended) override
    {
        later(ended, savePath);
    }
    void setDecryptProgressShown(bool shown) override { progress.append(shown); }
    void clearPasswordToDecryptField() override { passwordFieldCleared = true; }
    void scrollRowToVisible(qsizetype row) override { scrolledTo = row; }
    // The redrawn parts in the order of the calls: the identifier of a column, "categoryViews" or
    // "categoryTable".
    void redrawColumn(const QString &identifier) override { redrawn.append(identifier); }
    void redrawCategoryViews() override { redrawn.append(u"categoryViews"_qs); }
    void redrawCategoryTable() override { redrawn.append(u"categoryTable"_qs); }
    void scrollCategoryViewToBottom() override { ++categoryScrolls; }
    void scrollListViewToBottom() override {}
    PopUpMenu &actionPopUp() override { return popUp; }
    void attachCategoryMenu() override {}
    void setSearchInfoShown(bool) override {}
    VLVSplitViewDelegate &mySplitViewDelegate() override { return splitViewDelegate; }
    Foundation::Color controlTextColor() const override { return {0.25, 0.5, 0.75}; }
    void printWhiteView() override {}
    void runPageLayout() override {}

    Foundation::Rect frameNow{100.25, 200.5, 900, 600};
    QString savePath; // the path that the user chooses; null to cancel
    bool toolbarVisible = true;
    bool visible = false;
    bool closed = false;
    bool passwordFieldCleared = false;
    qsizetype scrolledTo = -2;
    QList<bool> progress;
    QStringList redrawn;
    int categoryScrolls = 0;
    ScriptedPopUpMenu popUp;
    VLVSplitViewDelegate splitViewDelegate;

private:
    struct Sheet
    {
        QString name;
        std::optional<Foundation::Alert> alert;
        SheetEnd ended;
    };

    Sheet takeFirst()
    {
        Sheet first = std::move(m_sheets.front());
        m_sheets.pop_front();
        return first;
    }
    // Calls a completion on a later turn of the main queue, unless the window was closed or destroyed by
    // then.
    template <class Completion, class Result>
    void later(Completion ended, const Result &result)
    {
        Foundation::Services::shared().mainQueue().addOperation(
            [life = std::weak_ptr(m_life), ended = std::move(ended), result] {
                if (!life.expired())
                    ended(result);
            });
    }

    std::deque<Sheet> m_sheets; // The first is shown; the others wait.
    std::shared_ptr<int> m_life = std::make_shared<int>();
};
