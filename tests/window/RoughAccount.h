#pragma once

#include "lifecycle/MyDocument.h"

#include <QMap>
#include <QSet>

#include <functional>
#include <map>

// A plain account of what one document must hold, for a test that plays its user. It knows nothing of how the
// document works: before each act the test says what the act may change, and afterwards everything else must
// be as it was. Contacts and categories have numbers, which they keep over a lock or a second opening.
class RoughAccount
{
public:
    using Object = Foundation::ArrayController::Object;
    using Texts = QMap<QString, QString>;

    static constexpr int Captions = 0; // the number of all captions together

    // What an act may change; nothing, unless it says so.
    struct Leave
    {
        QSet<int> ids; // have `text` under `key` afterwards; any text, if it is null
        QString key;
        QString text;
        int appear = 0; // so many contacts at most
        int vanish = 0;
        QSet<int> vanishing;    // the only ones that may vanish; empty for any
        QSet<int> copied;       // a new contact is like one of these; empty for any
        int categoriesMore = 0; // so many at most
        int categoriesLess = 0;
        bool isUndo = false; // texts may go back to what once stood in the same field of the same contact
    };

    // Everything, without its account: for the beginning.
    void begin(MyDocument &document) { m_state = observe(document); }
    // The content has been read anew, and all objects are new ones at the places of the old.
    QStringList rebind(MyDocument &document);
    // What is not as it should be; from now on, what is there counts.
    QStringList differences(MyDocument &document, const Leave &leave);

    // Of a record or a category; -1 for one that was never seen.
    int idOf(const Object &object) const;
    const Texts &texts(int id) const { return m_state.texts.constFind(id).value(); }
    qsizetype recordCount() const { return m_state.records.size(); }

private:
    struct State
    {
        QList<int> records;
        QList<int> categories;
        QMap<int, Texts> texts;
    };

    State observe(MyDocument &document);
    int numberOf(const Object &object);
    bool isBack(int id, Texts texts, const State &now) const;
    QStringList differencesInList(const State &now, const Leave &leave) const;
    QStringList differencesInTexts(const State &now, const Leave &leave) const;
    void take(const State &now);

    State m_state;
    std::map<const Foundation::Dictionary *, int> m_ids;
    std::vector<Object> m_kept; // so that no address is used twice
    int m_lastId = Captions;
    QMap<int, Texts> m_last; // of those, too, that are gone
    QMap<std::pair<int, QString>, QSet<QString>> m_history;
};
