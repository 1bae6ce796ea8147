// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/QuickHelp.h"

#include <algorithm>

#include "master/columns/MeasureFamilies.h"
#include "session/QuickHelpSentences.h"
#include "text/LeadingNumber.h"

namespace zova {

namespace {

std::string_view FindIn(std::span<const Sentence> sentences, std::string_view name) noexcept {
  const auto found = std::lower_bound(sentences.begin(), sentences.end(), Sentence{name, {}}, IsBefore);
  return found != sentences.end() && found->Name == name ? found->Text : std::string_view();
}

std::string_view SentenceOf(std::string_view name, QuickHelpForm form) noexcept {
  if (const std::string_view text = FindIn(SentencesOf(form), name); !text.empty()) return text;
  if (form != QuickHelpForm::Usual) return {};
  if (const std::string_view text = FindIn(DataScreenSentences(), name); !text.empty()) return text;
  for (const MeasureBox& box : AllMeasureBoxes()) {
    if (box.Name == name) return box.QuickHelp;
    if (box.Frame->Name == name) return box.Frame->QuickHelp;
  }
  return {};
}

// For a member of an array, the name without its number.
std::string_view WithoutNumber(std::string_view name) noexcept {
  while (!name.empty() && IsDigit(name.back())) name.remove_suffix(1);
  return name;
}

}  // namespace

std::string_view QuickHelp(std::string_view controlName, QuickHelpForm form) noexcept {
  for (const QuickHelpForm asked : {form, QuickHelpForm::Usual}) {
    for (const std::string_view name : {controlName, WithoutNumber(controlName)}) {
      if (const std::string_view sentence = SentenceOf(name, asked); !sentence.empty()) return sentence;
    }
  }
  return {};
}

}  // namespace zova
