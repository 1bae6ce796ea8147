// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/FileCopier.h"

#include <set>

#include "text/Encoding.h"

namespace zova {

FileCopier::FileCopier(Disk& disk, std::string from, std::string to, std::vector<std::string> names)
    : m_disk(disk), m_from(std::move(from)), m_to(std::move(to)), m_names(std::move(names)) {}

void FileCopier::Open() {
  m_resolvedFrom = m_disk.Resolve(m_from, FileOperation::Copy);
  m_resolvedTo = m_disk.Resolve(m_to, FileOperation::Copy);
  m_disk.RemoveLeftovers(m_to);
  const std::set<std::string> copied(m_names.begin(), m_names.end());
  for (const std::string& name : m_disk.ListFiles(m_to, "", "")) {
    if (copied.count(name) == 0) m_others.emplace(UpperCase(name), name);
  }
  m_isOpen = true;
}

std::string FileCopier::TargetName(const std::string& name) const {
  if (m_others.empty()) return name;
  if (m_disk.Kind(Below(m_resolvedTo, name), FileOperation::Copy) != EntryKind::Missing) return name;
  const auto other = m_others.find(UpperCase(name));
  return other == m_others.end() ? name : other->second;
}

void FileCopier::Copy(const std::string& name) {
  if (!m_isOpen) Open();
  ResolvedPath target = Below(m_resolvedTo, TargetName(name));
  target.Shown = JoinPath(m_to, name);
  m_disk.Copy(Below(m_resolvedFrom, name), target);
}

}  // namespace zova
