// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/desktop/QtSettings.h"

#include <QFileInfo>
#include <QSettings>

#include "app/widgets/Controls.h"
#include "platform/files/FileError.h"

namespace zova {
namespace {

// One per call, since QSettings never resets its error status.
class Store {
 public:
  Store(const std::string& section, const std::string& key)
      : m_settings(QSettings::IniFormat, QSettings::UserScope, "ZOVA", "Dorvan's ZOVA"),
        m_name(ToQt(section + "/" + key)) {}

  [[nodiscard]] QVariant Value() const { return m_settings.value(m_name); }

  // An invalid value removes the key. A value that cannot be written must not be read back from Qt's cache.
  void Write(const QVariant& value) {
    const QVariant before = Value();
    Put(value);
    m_settings.sync();
    if (m_settings.status() != QSettings::AccessError) return;
    Put(before);
    const QFileInfo file(m_settings.fileName());
    const auto cause = file.exists() && !file.isWritable() ? std::errc::permission_denied : std::errc::io_error;
    throw FileError(FileOperation::Write, FromQt(m_settings.fileName()), std::make_error_code(cause));
  }

 private:
  void Put(const QVariant& value) { value.isValid() ? m_settings.setValue(m_name, value) : m_settings.remove(m_name); }

  QSettings m_settings;
  QString m_name;
};

}  // namespace

std::string QtSettings::Get(const std::string& section, const std::string& key) {
  return FromQt(Store(section, key).Value().toString());
}

void QtSettings::Set(const std::string& section, const std::string& key, const std::string& value) {
  Store(section, key).Write(ToQt(value));
}

void QtSettings::Remove(const std::string& section, const std::string& key) { Store(section, key).Write({}); }

}  // namespace zova
