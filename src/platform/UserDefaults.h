#pragma once

#include <QSettings>
#include <QVariant>

#include <memory>

namespace Foundation
{

// The user's settings: a flat table of keys and values in a file of the user's own, over a table of
// registered defaults that is never written. Reads are immediate. Main thread only.
class UserDefaults
{
public:
    static UserDefaults &standardUserDefaults();

    // Keys that the user never set read as these.
    void registerDefaults(const QVariantHash &defaults);

    // Invalid for a key that is neither set nor registered.
    QVariant value(const QString &key) const;
    bool boolForKey(const QString &key) const { return value(key).toBool(); }
    int integerForKey(const QString &key) const { return value(key).toInt(); }
    // An invalid value removes the key.
    void setValue(const QString &key, const QVariant &value);
    void synchronize();

private:
    UserDefaults();

    std::unique_ptr<QSettings> m_settings;
    QVariantHash m_defaults;
};

} // namespace Foundation
