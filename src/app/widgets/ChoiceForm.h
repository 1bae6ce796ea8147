// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "session/ImportChoices.h"

class QComboBox;
class QLabel;

namespace zova {

/// A list for each choice below its question. The focus stays with its choice, also when others come or go.
class ChoiceForm : public QWidget {
 public:
  /// `choose` is called with the name of a choice and the answer's index.
  ChoiceForm(const char* name, std::function<void(const std::string& name, int answer)> choose);
  void Show(const std::vector<ImportChoice>& choices);

 private:
  void Build(const std::vector<ImportChoice>& choices);

  std::function<void(const std::string& name, int answer)> m_choose;
  std::vector<std::string> m_names;
  std::vector<QLabel*> m_labels;
  std::vector<QComboBox*> m_boxes;
};

}  // namespace zova
