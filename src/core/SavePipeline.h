#pragma once

#include "core/DocumentState.h"
#include "values/Result.h"

#include <optional>

// Makes the bytes of a file in the current layout from the state of a document. Decides whether saving is
// allowed, when key material is renewed, and what records lose in a file.
//
// A save of an open document renews salt, vector, key and check pair, so that two saves have nothing in
// common; all buffers of one save share them. Main thread only. Blocks for six key derivations, or more after
// a change of the password. Never changes the records.
class SavePipeline
{
public:
    // The frame of the window, or zero without a window, and whether the toolbar is shown.
    struct WindowPlacement
    {
        Foundation::Rect frame;
        bool isToolbarVisible = false;
    };

    explicit SavePipeline(DocumentState &state)
        : m_state(state)
    {
    }

    // New arrays of copies that share their values with the originals: records have the id of their category
    // in place of the reference, categories have no `records`. Prescribed; no caller yet, because the
    // following two operations make the same archives without copies.
    Foundation::Ref<Foundation::Array> getCopyOfContentArrayForSaveOperation() const;
    Foundation::Ref<Foundation::Array> getCopyOfCategoryArrayForSaveOperation() const;
    // The same archives as those of the copies, made without copying. For `memory`, see archivedData().
    QByteArray archivedRecords(QByteArray memory = {}) const;
    QByteArray archivedCategories() const;

    // Makes the four enciphered buffers from the content. Required: if a cipher step fails, its buffer is
    // empty, and no error is reported.
    void encryptData();

    // The bytes of the file. Returns nothing, and logs a line, while YouCanSave is false. For a locked
    // document, the existing buffers are used. An absent buffer is omitted, so the caller must check
    // canBeRead() before it writes the bytes.
    [[nodiscard]] std::optional<QByteArray> dataOfType(const WindowPlacement &window);

    enum class UnreadableBecause {
        NotEnciphered,  // A buffer is absent, or salt, vector and check pair are not those of the buffers.
        ContentRefused, // The reader would refuse the content, so it was left out.
    };
    // Whether the bytes from the last dataOfType() can be opened again: every buffer exists, and salt, vector
    // and check pair belong to the buffers. A failure has no words.
    static Foundation::Result<void, UnreadableBecause> canBeRead(const DocumentState &state);

    static Foundation::Ref<Foundation::Dictionary> platformDictionary(const WindowPlacement &window);

private:
    void ensureEngine();
    void makeCheckPair();
    // The enciphered archive. Empty if the cipher fails, or if the reader would refuse the archive.
    QByteArray enciphered(QByteArray archive);

    DocumentState &m_state;
};
