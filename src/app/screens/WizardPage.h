// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>
#include <QWidget>
#include <optional>
#include <utility>
#include <vector>

#include "project/wizard/NewProjectWizard.h"

namespace zova {

/// One page of the wizard: what its rows of questions add, and its title, which stands in the frame's header.
class WizardPage : public QWidget {
  Q_OBJECT

 public:
  /// `number` from 1: the page is FraPrmScr1, its title lblTitle1, and so on.
  WizardPage(NewProjectWizard& wizard, int number, const QString& title);

  struct TextBox {
    WizardBox Box;
    QLineEdit* Edit;
    QLabel* Label;
  };
  using Remark = bool (NewProjectWizard::*)() const noexcept;
  /// A remark for those who define a project.
  static constexpr Remark kWhenDefining = &NewProjectWizard::IsDefining;

  /// Adds a line of text, visible only while `shown` holds, if given.
  QLabel* AddText(const char* name, const QString& text, Remark shown = nullptr);
  /// Adds a box with its question above it.
  TextBox AddBox(WizardBox box, const char* labelName, const QString& question, const char* name);
  /// Makes a box with its label, for a row that the caller lays out.
  TextBox MakeBox(WizardBox box, const char* labelName, const QString& caption, const char* name);
  /// Adds a yes/no question; with `asked` only while that box is required.
  void AddOptions(WizardOption option, const char* labelName, const QString& question, const char* yesName,
                  const char* noName, std::optional<WizardBox> asked = {});
  [[nodiscard]] QVBoxLayout* Rows() const noexcept { return m_rows; }
  [[nodiscard]] QLabel* Title() const noexcept { return m_title; }

  virtual void Refresh();
  /// The control in which the cursor stands for `box`, one of this page's.
  [[nodiscard]] virtual QWidget* ControlOf(WizardBox box) const;

 signals:
  /// An act reached the wizard.
  void Acted();

 protected:
  [[nodiscard]] NewProjectWizard& Wizard() const noexcept { return m_wizard; }

 private:
  struct OptionPair {
    WizardOption Option;
    QRadioButton* Yes;
    QRadioButton* No;
    QLabel* Label;
    std::optional<WizardBox> Asked;
  };
  void StoreText(const TextBox& typed, const QString& text);
  void StoreOption(WizardOption option, bool yes);

  NewProjectWizard& m_wizard;
  QLabel* m_title;
  QVBoxLayout* m_rows;
  std::vector<TextBox> m_boxes;
  std::vector<OptionPair> m_options;
  std::vector<std::pair<QLabel*, Remark>> m_remarks;
};

}  // namespace zova
