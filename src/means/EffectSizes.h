// SPDX-License-Identifier: GPL-3.0-or-later
//
//   d = (M1 - M2) / s_pooled                       two levels of a variable
//   d_z = mean of the differences / their SD       two tests of one measure
//   eta squared = SS_between / SS_total            more levels or tests
//
// Of tests only subjects with a value on each of them count.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "means/MeansTable.h"

namespace zova {

struct Effect {
  std::string Measure;   ///< "Net(Test 1)"; of tests the family, "Net"
  std::string Kind;      ///< "d", "difference", "d_z", "eta squared"
  std::string Factor;    ///< the variable, or "Test"
  std::string Contrast;  ///< "Woman - Man"; "" for eta squared
  std::size_t N = 0;     ///< subjects
  std::optional<double> Value;
  std::optional<double> Low;  ///< of the 95 % confidence interval; a difference has one
  std::optional<double> High;
};

/// The effects of each requested variable on each requested measure, and of the tests in each family of which several
/// tests are requested.
std::vector<Effect> ComputeEffects(const MasterTable& table, const MeansRequest& request,
                                   const ProjectParameters* project);

/// As a CSV: Measure, Effect, Factor, Contrast, n, Value, 95% CI Low, 95% CI High.
MeansLines LinesOf(const std::vector<Effect>& effects);

/// What the effects of a kind are: "d_z: the mean of the subjects' differences / their SD".
std::string_view EffectDefinition(std::string_view kind);

/// "Sex, Woman - Man: d = 0.53 (n = 24)".
std::string EffectText(const Effect& effect);

}  // namespace zova
