#pragma once

// The first dump of a log as text, one line for each variable: "name = value", and "[LOCAL]" and the like for a banner.

#include "tests/foundation/error_component.h"

namespace strandline {

inline std::string DumpText(const LogLines& log) {
  static constexpr std::string_view kVariable = "vbwReportVariable('";
  static constexpr std::string_view kObject = "vbwReportObject('";
  std::string text;
  bool isOpen = false;
  for (const std::string& line : log) {
    if (line == "vbwOpenDumpFile()") isOpen = true;
    if (!isOpen) continue;
    if (line == "vbwCloseDumpFile()") break;
    const std::string_view view = line;
    if (view.starts_with(kVariable)) {
      const std::size_t quote = view.find("', ", kVariable.size());
      text += view.substr(kVariable.size(), quote - kVariable.size());
      text += " = ";
      text += view.substr(quote + 3, view.size() - std::string_view(", 0)").size() - quote - 3);
    } else if (view.starts_with(kObject)) {
      text += view.substr(kObject.size(), view.find("', ") - kObject.size());
    } else if (const std::size_t banner = view.find("* "); banner != std::string_view::npos) {
      text += "[" + std::string(view.substr(banner + 2, view.find(' ', banner + 2) - banner - 2)) + "]";
    } else {
      continue;
    }
    text += '\n';
  }
  return text;
}

}  // namespace strandline
