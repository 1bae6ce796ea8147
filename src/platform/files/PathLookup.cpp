// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/PathLookup.h"

#include <algorithm>
#include <string>

#include "platform/files/PathParts.h"
#include "text/Encoding.h"

namespace zova {

namespace fs = std::filesystem;

// Standard libraries differ in what they take for the root of a path on a server.
fs::path RootOf(const fs::path& path) {
#ifdef _WIN32
  constexpr wchar_t kSeparator = L'\\';
  const std::wstring& name = path.native();
  if (name.starts_with(L"\\\\")) {
    const std::size_t share = std::min(name.find(kSeparator, 2), name.size() - 1) + 1;
    return name.substr(0, name.find(kSeparator, share)) + kSeparator;
  }
#endif
  return path.root_path();
}

std::optional<fs::path> LookUp(FileLayer& layer, const fs::path& path) {
  if (layer.Kind(path) != EntryKind::Missing) return path;
  fs::path found = RootOf(path);
  if (!found.empty() && layer.Kind(found) == EntryKind::Missing) return std::nullopt;
  const fs::path rest = path.native().substr(std::min(found.native().size(), path.native().size()));
  for (const fs::path& part : rest) {
    const fs::path exact = found / part;
    if (layer.Kind(exact) == EntryKind::Missing && layer.Kind(found) == EntryKind::Directory) {
      const std::string wanted = PathText(part);
      std::string best;
      for (const DirectoryEntry& entry : layer.List(found)) {
        if (EqualsIgnoringCase(entry.Name, wanted) && (best.empty() || entry.Name < best)) best = entry.Name;
      }
      found /= best.empty() ? part : PathFromText(best);
    } else {
      found = exact;
    }
  }
  return found;
}

}  // namespace zova
