#include "platform/UserDefaults.h"

#include <QStandardPaths>

namespace Foundation
{

namespace
{

QString standardFile;

} // namespace

UserDefaults::UserDefaults(const QString &pathInFolder)
    : m_settings(std::make_unique<QSettings>(
          QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' + pathInFolder,
          QSettings::IniFormat))
{
}

UserDefaults &UserDefaults::standardUserDefaults()
{
    Q_ASSERT(!standardFile.isNull());
    static UserDefaults defaults(standardFile);
    return defaults;
}

void UserDefaults::setStandardFile(const QString &pathInFolder)
{
    Q_ASSERT(standardFile.isNull() || standardFile == pathInFolder);
    standardFile = pathInFolder;
}

void UserDefaults::registerDefaults(const QVariantHash &defaults)
{
    m_defaults.insert(defaults);
}

QVariant UserDefaults::value(const QString &key) const
{
    const QVariant stored = m_settings->value(key);
    return stored.isValid() ? stored : m_defaults.value(key);
}

void UserDefaults::setValue(const QString &key, const QVariant &value)
{
    if (value.isValid())
        m_settings->setValue(key, value);
    else
        m_settings->remove(key);
}

void UserDefaults::synchronize()
{
    m_settings->sync();
}

} // namespace Foundation
