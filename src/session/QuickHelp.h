// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace zova {

/// The forms of a screen that have sentences of their own: the wizard's pages while they show a project, and the
/// location screen while it asks for a backup's destination.
enum class QuickHelpForm { Usual, Viewing, NewBackup };

/// The sentence shown for a right-click on the control; "" without one. Members of an array (`lblVarLevel3`) share it.
std::string_view QuickHelp(std::string_view controlName, QuickHelpForm form = QuickHelpForm::Usual) noexcept;

}  // namespace zova
