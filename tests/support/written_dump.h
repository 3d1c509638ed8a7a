#pragma once

// A dump as it reached the error component, a line for each variable, so that a whole dump can be compared.

#include <algorithm>
#include <initializer_list>

#include "tests/foundation/error_component.h"

namespace strandline {

// What a test expects of a dump: the variables of the procedure and of its module or class, as "name = value".
struct ExpectedDump {
  LogLines locals;
  LogLines module;
  // Of ToolbarUtilities: adFactory, productState, converter; "Nothing" or "object" each.
  LogLines globals = {"Nothing", "Nothing", "Nothing"};
};

inline std::string AsText(const ExpectedDump& dump) {
  LogLines lines = {"vbwOpenDumpFile()", "* LOCAL LEVEL VARIABLES  *"};
  lines.insert(lines.end(), dump.locals.begin(), dump.locals.end());
  lines.push_back("* MODULE LEVEL VARIABLES *");
  lines.insert(lines.end(), dump.module.begin(), dump.module.end());
  lines.insert(
      lines.end(),
      {"* GLOBAL LEVEL VARIABLES *", "vbwProtector.vbwTraceProc = True", "vbwProtector.vbwTraceParameters = False",
       "ToolbarUtilities.adFactory = " + dump.globals.at(0), "ToolbarUtilities.productState = " + dump.globals.at(1),
       "ToolbarUtilities.converter = " + dump.globals.at(2), "vbwReportObject('App', 0, object)",
       "vbwReportObject('Err', 0, object)", "vbwReportObject('Screen', 0, object)", "vbwCloseDumpFile()"});
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

// The first dump of a log of the error component, in the same form.
inline std::string WrittenDump(const LogLines& log) {
  const std::string variable = "vbwReportVariable('";
  const std::string banner = "vbwReportToFile('|**************************|";
  std::string text;
  bool isOpen = false;
  for (const std::string& line : log) {
    isOpen = isOpen || line == "vbwOpenDumpFile()";
    if (!isOpen) continue;
    if (line.starts_with(variable) && line.ends_with(", 0)")) {
      const std::size_t end = line.find("', ", variable.size());
      const std::size_t value = end + 3;
      text += line.substr(variable.size(), end - variable.size()) + " = " +
              line.substr(value, line.size() - value - std::string(", 0)").size()) + "\n";
    } else if (line.starts_with(banner)) {
      text += line.substr(banner.size(), line.find('|', banner.size()) - banner.size()) + "\n";
    } else {
      text += line + "\n";
    }
    if (line == "vbwCloseDumpFile()") break;
  }
  return text;
}

}  // namespace strandline
