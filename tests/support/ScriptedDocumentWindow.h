#pragma once

#include "lifecycle/MyDocumentWindow.h"
#include "support/ScriptedPopUpMenu.h"

#include <gtest/gtest.h>

#include <deque>

// A document's window without any pixels: keeps what it is asked, and ends sheets and alerts when the test
// says.
class ScriptedDocumentWindow : public MyDocumentWindow
{
public:
    // The alert that waits for its answer; fails the test if there is none.
    Foundation::Alert alert() const
    {
        if (m_alerts.empty()) {
            ADD_FAILURE() << "no alert is shown";
            return {};
        }
        return m_alerts.front().first;
    }
    bool hasAlert() const { return !m_alerts.empty(); }
    void answer(int returnCode)
    {
        ASSERT_FALSE(m_alerts.empty());
        const auto answered = std::move(m_alerts.front().second);
        m_alerts.pop_front();
        answered(returnCode);
    }
    // Null without a sheet.
    QString sheet() const { return m_sheet; }

    Foundation::Rect frame() const override { return frameNow; }
    void setFrame(const Foundation::Rect &frame, bool) override { frameNow = frame; }
    Foundation::Size minSize() const override { return {560, 340}; }
    bool isToolbarVisible() const override { return toolbarVisible; }
    void setToolbarVisible(bool shown) override { toolbarVisible = shown; }
    void orderOut() override { visible = false; }
    void center() override {}
    void makeKeyAndOrderFront() override { visible = true; }
    void close() override { closed = true; }
    void beginSheet(const QString &name, SheetEnd ended) override
    {
        m_sheet = name;
        m_sheetEnd = std::move(ended);
    }
    void endSheet(const QString &name, int returnCode) override
    {
        if (m_sheet != name)
            return;
        m_sheet = QString();
        m_sheetEnd(returnCode);
    }
    void endAllSheets() override
    {
        while (hasAlert())
            answer(0);
        if (!m_sheet.isNull())
            endSheet(m_sheet, 0);
    }
    void beginAlert(const Foundation::Alert &alert, Foundation::AlertAnswer answered) override
    {
        m_alerts.emplace_back(alert, std::move(answered));
    }
    void beginSavePanel(const QString &, std::function<void(QString)> ended) override { ended(savePath); }
    void setDecryptProgressShown(bool shown) override { progress.append(shown); }
    void clearPasswordToDecryptField() override { passwordFieldCleared = true; }
    void scrollRowToVisible(qsizetype row) override { scrolledTo = row; }
    // What is redrawn, in the order of the calls: a column's identifier, "categoryViews", "categoryTable".
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
    QString savePath; // what the user chooses; null: gives up
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
    QString m_sheet;
    SheetEnd m_sheetEnd;
    std::deque<std::pair<Foundation::Alert, Foundation::AlertAnswer>> m_alerts;
};
