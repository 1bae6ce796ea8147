// SPDX-License-Identifier: GPL-3.0-or-later
//
// A place is the identity of the nearest existing directory or file, and the missing names below it. Missing names are
// compared without regard to case, since a lookup would find the first one created under either spelling.

#include "platform/files/FilePlace.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/files/PathParts.h"
#include "text/Encoding.h"

namespace zova {

namespace fs = std::filesystem;

namespace {

struct Place {
  fs::path Nearest;  // exists; links resolved
  FileIdentity Identity;
  std::vector<std::string> Missing;
};

Place PlaceOf(FileLayer& layer, const fs::path& path) {
  Place place{layer.RealPath(path), {}, {}};
  for (;;) {
    if (const auto identity = layer.Identity(place.Nearest)) {
      place.Identity = *identity;
      return place;
    }
    const fs::path parent = place.Nearest.parent_path();
    if (parent == place.Nearest) return place;
    if (place.Nearest.has_filename()) {
      place.Missing.insert(place.Missing.begin(), PathText(place.Nearest.filename()));
    }
    place.Nearest = parent;
  }
}

bool BeginsWith(const std::vector<std::string>& names, const std::vector<std::string>& first) {
  return names.size() >= first.size() && std::equal(first.begin(), first.end(), names.begin(), EqualsIgnoringCase);
}

}  // namespace

bool IsSameEntry(FileLayer& layer, const fs::path& left, const fs::path& right) {
  const Place a = PlaceOf(layer, left);
  const Place b = PlaceOf(layer, right);
  return IsSameFile(a.Identity, b.Identity) && a.Missing.size() == b.Missing.size() && BeginsWith(a.Missing, b.Missing);
}

bool LiesBelow(FileLayer& layer, const fs::path& inner, const fs::path& outer) {
  const Place in = PlaceOf(layer, inner);
  const Place out = PlaceOf(layer, outer);
  if (IsSameFile(in.Identity, out.Identity)) {
    return in.Missing.size() > out.Missing.size() && BeginsWith(in.Missing, out.Missing);
  }
  if (!out.Missing.empty()) return false;
  for (fs::path place = in.Nearest; place != place.parent_path();) {
    place = place.parent_path();
    const auto identity = layer.Identity(place);
    if (identity && IsSameFile(*identity, out.Identity)) return true;
  }
  return false;
}

}  // namespace zova
