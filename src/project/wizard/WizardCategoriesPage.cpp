// SPDX-License-Identifier: GPL-3.0-or-later
//
// The record's number of items includes one lure per category when false memory is measured. The page first subtracts
// the lures of its earlier pass, by the number of categories of that pass, and adds the new ones last, so that a pass
// without changes leaves the record unchanged.

#include "project/wizard/WizardPages.h"

namespace zova {

namespace {

// The list that results from the answers, including lures.
struct ListShape {
  int Items = 0;
  int Categories = 0;
  int ItemsPerCategory = 0;
  bool HasLures = false;
};

int StudiedItems(const ProjectParameters& project) {
  return project.ItemCount - (project.FalseMemory == 1 ? project.CategoryCount : 0);
}

WizardFault CheckCategories(WizardState& state, const Platform& platform, ListShape& shape) {
  constexpr WizardBox kBox = WizardBox::Categories;
  std::string& text = state.Entries.Text(kBox);
  if (text.empty()) return Refuse(platform, "You must enter the number of categories.", kBox);
  const auto categories = NumberInBox(text, 4, 1, kMaxCategories);
  if (!categories) {
    return Refuse(platform, "Value for number of categories must be numeric and between 1 and 5000.", kBox);
  }
  shape.Categories = *categories;
  shape.HasLures = state.Entries.Option(WizardOption::FalseMemory);
  const int studied = shape.Items;
  if (shape.HasLures) shape.Items += shape.Categories;
  if (studied < 1) return Refuse(platform, kBadItemCount, kBox);
  if (studied % shape.Categories != 0) {
    return Refuse(platform, "All categories must have an equal number of items.", kBox);
  }
  if (shape.Items > kMaxItems) return Refuse(platform, kBadItemCount, kBox);
  shape.ItemsPerCategory = shape.Items / shape.Categories;
  return std::nullopt;
}

}  // namespace

WizardFault LeaveCategoriesPage(WizardState& state, const Platform& platform) {
  ListShape shape{.Items = StudiedItems(state.Project)};
  const bool categorized = state.Entries.Option(WizardOption::Categorized);
  if (categorized) {
    if (auto fault = CheckCategories(state, platform, shape)) return fault;
  } else if (shape.Items < 1) {
    return Refuse(platform, kBadItemCount, WizardBox::CategoriesOption);
  }
  ProjectParameters& project = state.Project;
  project.Categorized = categorized ? 1 : 0;
  project.CategoryCount = static_cast<std::int16_t>(shape.Categories);
  project.ItemsPerCategory = static_cast<std::int16_t>(shape.ItemsPerCategory);
  project.FalseMemory = shape.HasLures ? 1 : 0;
  project.ItemCount = static_cast<std::int16_t>(shape.Items);
  state.Entries.Text(WizardBox::Items) = std::to_string(shape.Items);
  return std::nullopt;
}

}  // namespace zova
