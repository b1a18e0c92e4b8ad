#pragma once

#include "core/DocumentState.h"
#include "values/Result.h"

#include <optional>

// Turns the state of a document into the bytes of a file in the current layout. Decides whether saving is
// allowed at all, when key material is renewed, and what is left out of the records.
//
// A save of an open document renews salt, vector, key and check pair, so that two saves share nothing; within
// one save all buffers share them. Main thread; blocks for six key derivations, or more after a change of
// password. The live records are never touched.
class SavePipeline
{
public:
    // The frame of the document's window, zero if it has none, and whether its toolbar is shown.
    struct WindowPlacement
    {
        Foundation::Rect frame;
        bool isToolbarVisible = false;
    };

    explicit SavePipeline(DocumentState &state)
        : m_state(state)
    {
    }

    // New arrays of new dictionaries that share their values with the live ones: records with the id of their
    // category in place of the reference, categories without `records`.
    Foundation::Ref<Foundation::Array> getCopyOfContentArrayForSaveOperation() const;
    Foundation::Ref<Foundation::Array> getCopyOfCategoryArrayForSaveOperation() const;
    // The archives of those copies, byte for byte, without making them. `memory`: see archivedData.
    QByteArray archivedRecords(QByteArray memory = {}) const;
    QByteArray archivedCategories() const;

    // Refreshes the four enciphered buffers from the plain content. A cipher step that fails leaves its
    // buffer absent and is not reported.
    void encryptData();

    // The bytes of the file; nothing, and a line in the log, while the gate YouCanSave is shut. A locked
    // document gives the buffers that it has. An absent buffer is left out, so the caller that writes the
    // bytes asks canBeRead() first.
    [[nodiscard]] std::optional<QByteArray> dataOfType(const WindowPlacement &window);

    enum class UnreadableBecause {
        NotEnciphered,  // A buffer is absent, or salt, vector and check pair are not those of the buffers.
        ContentRefused, // No reader would take the content, so that it was left out.
    };
    // Whether what dataOfType gave last can ever be opened again: every buffer is there, and a locked
    // document has the salt, vector and check pair that belong to its buffers. A failure has no words.
    static Foundation::Result<void, UnreadableBecause> canBeRead(const DocumentState &state);

    static Foundation::Ref<Foundation::Dictionary> platformDictionary(const WindowPlacement &window);

private:
    void ensureEngine();
    void makeCheckPair();
    // Empty where the cipher fails, or where no reader would take what is archived.
    QByteArray enciphered(QByteArray archive);

    DocumentState &m_state;
};
