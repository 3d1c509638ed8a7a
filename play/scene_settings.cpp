#include "play/scene_settings.h"

namespace strandline::play {

namespace {

// From 0001-01-01 to the day from which a Date counts.
constexpr double kDaysBeforeDates = 693593;
constexpr double kMillisecondsOfDay = 86'400'000;

Date DateOf(std::int64_t milliseconds) {
  return {static_cast<double>(milliseconds) / kMillisecondsOfDay - kDaysBeforeDates};
}

}  // namespace

wordsim::BarPosition BarPositionOf(const std::string& edge) {
  using wordsim::BarPosition;
  if (edge == "left") return BarPosition::kLeft;
  if (edge == "right") return BarPosition::kRight;
  if (edge == "bottom") return BarPosition::kBottom;
  return edge == "floating" ? BarPosition::kFloating : BarPosition::kTop;
}

SceneSettings::SceneSettings() {
  std::int64_t milliseconds = 0;
  ParseTime("2009-03-02T09:00:00", milliseconds);
  now = DateOf(milliseconds);
  world.showsTooltips = true;
}

bool SceneSettings::Apply(const Command& command) {
  const auto text = [&](std::string_view slot) { return FromUtf8(command.Text(slot)); };
  const auto number = [&](std::string_view slot) { return static_cast<Long>(command.Number(slot)); };
  const bool on = command.Text("SWITCH") == "on";
  switch (command.form->verb) {
    case Verb::kWord:
      world.wordVersion = text("TEXT");
      break;
    case Verb::kProduct:
      world.productName = text("NAME");
      break;
    case Verb::kNow:
      now = DateOf(command.Number("TIME"));
      break;
    case Verb::kCommandLine:
      commandLine = text("TEXT");
      break;
    case Verb::kSetting:
      initSettings.emplace_back(text("NAME"), text("TEXT"));
      break;
    case Verb::kLumivex:
      world.lumivexEnabled = on;
      break;
    case Verb::kIcon:
      world.hasIcon = on;
      break;
    case Verb::kComponent:
      world.missingComponents.push_back(text("PROGID"));
      break;
    case Verb::kBarEdge:
      world.barPosition = BarPositionOf(command.Text("EDGE"));
      break;
    case Verb::kBarLate:
      world.barLate = static_cast<Long>(command.Number("MS"));
      break;
    case Verb::kDpi:
      dpi = number("N");
      break;
    case Verb::kBarHeight:
      world.controlHeight = number("N");
      break;
    case Verb::kControls:
      world.controlCount = number("N");
      break;
    case Verb::kTemplate:
      world.templates.push_back(text("NAME"));
      break;
    case Verb::kClipboard:
      (command.Text("KIND") == "rtf" ? clipboardRichText : clipboardText) = text("TEXT");
      break;
    case Verb::kClipboardHeld:
      isClipboardHeld = true;
      break;
    default:
      return false;
  }
  return true;
}

}  // namespace strandline::play
