#pragma once

#include <QSettings>
#include <QVariant>

#include <memory>

namespace Foundation
{

// The settings of the user: keys and values in a settings file of the user. A key that the file lacks has its
// registered default; defaults are never written. A changed setting can be read immediately. Main thread
// only.
class UserDefaults
{
public:
    // Those of the application. Its file must have been set.
    static UserDefaults &standardUserDefaults();
    // In the user's folder of settings. To be called before the first use; never changes the file afterwards.
    static void setStandardFile(const QString &pathInFolder);

    // Adds defaults for keys that the user never set.
    void registerDefaults(const QVariantHash &defaults);

    // Returns an invalid variant for a key that is neither set nor registered.
    QVariant value(const QString &key) const;
    bool boolForKey(const QString &key) const { return value(key).toBool(); }
    int integerForKey(const QString &key) const { return value(key).toInt(); }
    // Stores a setting. An invalid value removes it.
    void setValue(const QString &key, const QVariant &value);
    // Writes all changes to the file now. Prescribed; no caller yet.
    void synchronize();

private:
    explicit UserDefaults(const QString &pathInFolder);

    std::unique_ptr<QSettings> m_settings;
    QVariantHash m_defaults;
};

} // namespace Foundation
