// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "app/screens/WizardPage.h"

namespace zova {

/// The wizard's pages in order, owned by the caller.
std::vector<WizardPage*> MakeWizardPages(NewProjectWizard& wizard);

}  // namespace zova
