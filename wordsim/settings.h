#pragma once

// What is chosen about the simulated Word and product before they begin.

#include <functional>
#include <vector>

#include "platform/variant.h"

namespace strandline::wordsim {

// Where a command bar stands; Word's own numbers.
enum class BarPosition : Long { kLeft = 0, kTop = 1, kRight = 2, kBottom = 3, kFloating = 4 };

struct Settings {
  String wordVersion = u"11.0";       // what Application.Version tells; which features exist follows the number
  String productName = u"Quillmere";  // also the name of the product's bar
  bool lumivexEnabled = false;
  bool hasIcon = false;  // productState.icon is a picture
  BarPosition barPosition = BarPosition::kTop;
  Long barLate = 0;               // milliseconds between a document's first wish for the bar's window and its appearing
  Long controlHeight = 34;        // pixels, of the bar's controls
  Long controlCount = 16;         // of the product's bar
  bool showsTooltips = false;     // the product's tooltip has a window of its own
  std::vector<String> templates;  // loaded beside Normal and the product's own
  std::vector<String> missingComponents;  // ProgIDs that can't be created
  // The product's folder for what all users share, with its last "\\"; there the ad library lies.
  String commonAppPath = u"C:\\Documents and Settings\\All Users\\Application Data\\Quillmere\\";
};

struct OpenFlags {
  bool reading = false;  // in the reading layout
  bool mail = false;     // in an Outlook window, where Word is old enough for that
  bool blank = false;    // new: never saved, one character, no path
};

// What the world asks of whoever plays it. Each may be empty; each is called on the one thread, inside the use that
// brings it about.
struct Hooks {
  std::function<void(Long position)> executeControl;  // Execute of a control of the product's bar
  std::function<void(Long position)> executeEntry;    // Execute of an entry of the product's menu, or its picking
  std::function<void(Long number)> showDialog;        // Dialogs(number).Show
  std::function<Variant(const String& command, const Variant& param)> productCommand;  // ExecuteQLMCommand
  std::function<Picture()> pasteFace;  // the picture on the system's clipboard, null when there is none
  std::function<void()> exitThread;    // the error component was asked to end the thread
};

}  // namespace strandline::wordsim
