// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace zova {

/// The style sheet of a report: black on white, tables and figures not torn apart by a page's end.
inline constexpr std::string_view kReportStyle =
    R"(body { font-family: sans-serif; max-width: 60em; margin: 2em auto; padding: 0 1em; color: #000; background: #fff; }
h1, h2, h2 + p, cite { break-after: avoid; }
table { border-collapse: collapse; margin: 1em 0; break-inside: avoid; }
th, td { padding: .2em .8em; text-align: right; border-bottom: 1px solid #ccc; }
th:first-child, td:first-child { text-align: left; }
figure { margin: 1em 0; break-inside: avoid; }
svg { max-width: 100%; height: auto; }
pre { white-space: pre-wrap; border: 1px solid #ccc; padding: .5em; }
cite { display: block; font-size: 90%; }
footer { margin-top: 3em; border-top: 1px solid #000; }
@media print { body { max-width: none; margin: 0; } }
)";

}  // namespace zova
