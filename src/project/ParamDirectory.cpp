// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ParamDirectory.h"

namespace zova {

namespace {

constexpr const char* kSection = "Startup";
constexpr const char* kKey = "ParamPath$";

}  // namespace

void ParamDirectory::Load() { m_path = m_settings.Get(kSection, kKey); }

bool ParamDirectory::IsThere() const { return IsRegistered() && m_disk.DirectoryExists(m_path); }

bool ParamDirectory::Exists() const {
  try {
    return IsThere();
  } catch (const FileError&) {
    return false;
  }
}

void ParamDirectory::Register(const std::string& path) {
  m_settings.Set(kSection, kKey, path);
  m_path = path;
}

void ParamDirectory::KeepRegistration() {
  if (m_settings.Get(kSection, kKey) != m_path) Register(std::string(m_path));
}

bool ParamDirectory::Lock(const std::string& path) {
  try {
    return m_lock.Acquire(m_disk.Resolve(path, FileOperation::Read).Native) != DirectoryLock::Outcome::InUse;
  } catch (const FileError&) {
    m_lock.Release();
    return true;
  }
}

void ReportParamInUse(MessageBoxes& boxes) {
  boxes.Show({.Text = "ZOVA is already running with this 'Param' directory.", .Icon = BoxIcon::Critical});
}

}  // namespace zova
