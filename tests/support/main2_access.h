#pragma once

// Main2's own operations and fields, for tests.

#include "addin/Main2.h"

namespace strandline {

struct Main2Access {
  static Ref<Dictionary>& Registry(Main2& main) { return main.mToolbars; }
  static Object& RibbonHandler(Main2& main) { return main.mRibbonHandler; }
  static Ref<RibbonEvents>& Events(Main2& main) { return main.mRibbonEvents; }
  static Ref<AdvertisementsCallbackStub>& Callback(Main2& main) { return main.mCallbackToMe; }
  static Boolean& MoveToolbarFlag(Main2& main) { return main.mMoveToolbarFlag; }
  static Boolean& SmallToolbar(Main2& main) { return main.mSmallToolbar; }
  static Boolean& HasShrunkToolbar(Main2& main) { return main.mHasShrunkToolbar; }
  static Boolean& Enabled(Main2& main) { return main.sEnabled; }
  static Boolean& Quitting(Main2& main) { return main.sQuitting; }
  static Long OldHwnd(const Main2& main) { return main.mOldHwnd; }

  static void HandleDocumentCreateImpl(Main2& main) { main.HandleDocumentCreateImpl(); }
  static void AddListener(Main2& main, Long hwnd) { main.AddListener(hwnd); }
  static Boolean ToolbarExists(Main2& main, Long& hwnd) { return main.ToolbarExists(hwnd); }
  static Ref<Toolbar> castToToolbar(Main2& main, const Variant& item) { return main.castToToolbar(item); }
  static Ref<Toolbar> Toolbars(Main2& main, Long hwnd) { return main.Toolbars(hwnd); }
  static void RemoveExtraneousToolbar(Main2& main) { main.RemoveExtraneousToolbar(); }
  static void RemoveToolbarImpl(Main2& main, Long hwnd) { main.RemoveToolbarImpl(hwnd); }
  static void ToggleToolbarForNoDocuments(Main2& main, Boolean on) { main.ToggleToolbarForNoDocuments(on); }
  static void RemoveLastToolbar(Main2& main) { main.RemoveLastToolbar(); }
  static void RemoveActiveToolbarEntry(Main2& main, Boolean keep) { main.RemoveActiveToolbarEntry(keep); }
  static void RemoveAllToolbars(Main2& main) { main.RemoveAllToolbars(); }
  static void ToolbarVisible(Main2& main, Boolean value) { main.ToolbarVisible(value); }
  static void PreventQueryToSaveTemplate(Main2& main) { main.PreventQueryToSaveTemplate(); }
  static void EnsureToolbarIsOnItsOwnRow(Main2& main) { main.EnsureToolbarIsOnItsOwnRow(); }
  static void ProcessEliteToolbar(Main2& main, Boolean force) { main.ProcessEliteToolbar(force); }
  static void UpdateLumivexIcon(Main2& main) { main.UpdateLumivexIcon(); }
  static void ActivateQuillmereTab(Main2& main) { main.ActivateQuillmereTab(); }
};

}  // namespace strandline
