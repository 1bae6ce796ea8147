// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace zova {

template <typename Step>
class UndoStack {
 public:
  void Clear() noexcept {
    m_steps.clear();
    m_done = 0;
  }
  /// Drops the steps that could be redone.
  void Push(Step step) {
    m_steps.erase(m_steps.begin() + static_cast<std::ptrdiff_t>(m_done), m_steps.end());
    m_steps.push_back(std::move(step));
    ++m_done;
  }
  [[nodiscard]] bool CanUndo() const noexcept { return m_done > 0; }
  [[nodiscard]] bool CanRedo() const noexcept { return m_done < m_steps.size(); }
  /// The step to undo or redo; nullptr when there is none.
  const Step* Undo() noexcept { return m_done == 0 ? nullptr : &m_steps[--m_done]; }
  const Step* Redo() noexcept { return m_done == m_steps.size() ? nullptr : &m_steps[m_done++]; }

 private:
  std::vector<Step> m_steps;
  std::size_t m_done = 0;  // number of steps done
};

}  // namespace zova
