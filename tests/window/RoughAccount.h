#pragma once

#include "lifecycle/MyDocument.h"

#include <QMap>
#include <QSet>

#include <map>

// A plain account of what one document must hold, for a test that plays its user. It knows nothing of how the
// document works: the test says what each act may change, and everything else must be as it was. Contacts and
// categories have numbers, which they keep over a lock and a reopening.
class RoughAccount
{
public:
    using Object = Foundation::ArrayController::Object;
    using Texts = QMap<QString, QString>;

    static constexpr int Captions = 0; // the number of all captions together

    // What an act may change; by default nothing.
    struct Leave
    {
        QSet<int> ids{}; // have `text` under `key` afterwards; any text, if it is null
        QString key{};
        QString text{};
        int contactsMore = 0; // so many at most
        int categoriesMore = 0;
        QSet<int> vanishing{}; // one of these contacts and categories may go
        bool isUndo = false;   // texts under one key may go back to what the same contact once had there
    };

    // What differs from what the last call found, other than by leave.
    QStringList differences(MyDocument &document, const Leave &leave);
    // The same, without leave, after the content was read again: its objects are new ones, in the old order.
    QStringList differencesAfterReading(MyDocument &document);

    // -1 for an object that was never seen.
    int idOf(const Object &object) const;
    QSet<int> selectedIn(const Foundation::ArrayController &objects) const;
    const Texts &texts(int id) const { return m_state.texts.constFind(id).value(); }
    const QList<int> &contacts() const { return m_state.contacts; }

private:
    struct State
    {
        QList<int> contacts;
        QList<int> categories;
        QMap<int, Texts> texts;
    };

    State observe(MyDocument &document);
    int numberOf(const Object &object);
    QStringList differencesInList(const QList<int> &before, const QList<int> &after, int more,
                                  const Leave &leave) const;
    QStringList differencesInTexts(const State &now, const Leave &leave) const;

    State m_state;
    std::map<const Foundation::Dictionary *, int> m_ids;
    std::vector<Object> m_kept; // so that no address is used twice
    int m_lastId = Captions;
    QMap<std::pair<int, QString>, QSet<QString>> m_history;
};
