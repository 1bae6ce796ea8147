// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <string>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace zova {

/// One screen, in the frame that all share: a header with title and project, the content, a footer with a status and
/// the buttons. Only the content scrolls, so that the buttons stay in sight in a small window. The panel hands every
/// act of the user to the rules, and shows their answer in ShowState. Enter presses the default button and Escape the
/// cancelling one when the control with the focus has no use for the key.
class Panel : public QWidget {
  Q_OBJECT

 public:
  /// Shows the rules' state. The cursor moves when the rules have moved it since the last time, and stays otherwise.
  void Refresh();
  /// Shows the open project on the screens that name it, also while they are hidden.
  void ShowProjectName(const std::string& project);

 signals:
  /// An act reached the rules: anything may have changed. The owner refreshes the panel that is up.
  void Acted();

 protected:
  /// The frame fills `host`, a control of the panel, or the panel itself.
  explicit Panel(const char* name, QWidget* host = nullptr);
  virtual void ShowState() = 0;
  /// Counts how often the rules have placed the cursor.
  [[nodiscard]] virtual int CursorRevision() const { return 0; }
  /// Puts the cursor where it stands when the panel comes up.
  virtual void PlaceCursor();
  [[nodiscard]] virtual QPushButton* DefaultButton() const { return m_default; }
  [[nodiscard]] QWidget* Host() const noexcept { return m_host; }

  // The parts of the frame. Tab goes through the controls in the order in which they are added.
  QLabel* AddTitle(const char* name, const QString& text = {});
  void AddTitle(QLabel* title);
  void AddProjectName();
  /// A page that scrolls and is as wide as a form should be; returns its rows.
  QVBoxLayout* AddPage();
  void AddContent(QWidget* content, int stretch = 0);
  void AddStatus(QLabel* status);
  QPushButton* AddButton(const char* name, const QString& caption, std::function<void()> act);
  /// A button for the caller to lay out. `repeats`: it may be pressed as fast as one can click.
  QPushButton* MakeActButton(const char* name, const QString& caption, std::function<void()> act, bool repeats = false);
  void SetDefault(QPushButton* button);

  void Act(const std::function<void()>& act);
  /// As Act; then the cursor goes back to its place.
  void ActAndReturn(const std::function<void()>& act);

  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

  QWidget* m_cursor = nullptr;  ///< where PlaceCursor puts the cursor
  QPushButton* m_default = nullptr;
  QPushButton* m_cancel = nullptr;
  bool m_buttonsReturn = false;  ///< the cursor goes back to its place after every button

 private:
  QWidget* m_host;
  QWidget* m_header;
  QWidget* m_headerLine;
  QVBoxLayout* m_content;
  QWidget* m_footerLine;
  QWidget* m_footer;
  QLabel* m_projectName = nullptr;
  int m_cursorRevision = 0;
};

}  // namespace zova
