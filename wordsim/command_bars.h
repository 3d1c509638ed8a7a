#pragma once

// Word's command bars in the object model: the product's bar, "Drawing" and, from Word 2007 on, "Ribbon". What is
// written to a bar shows on its windows at once.

#include <string>

#include "wordsim/bar_controls.h"
#include "wordsim/settings.h"

namespace strandline::wordsim {

class WordWorld;

enum class BarKind { kProduct, kDrawing, kRibbon };

class CommandBar final : public SimObject {
 public:
  CommandBar(Ref<ObjectUses> uses, WordWorld& world, const String& name, BarKind kind, BarPosition position);

  const String& Name() const { return mName; }
  BarKind Kind() const { return mKind; }
  bool IsVisible() const { return mIsVisible; }
  BarPosition Position() const { return mPosition; }
  void SetPosition(BarPosition position) { mPosition = position; }
  Long RowIndex() const { return mRowIndex; }
  void SetRowIndex(Long row) { mRowIndex = row; }
  Long Left() const { return mLeft; }
  BarControls& Controls() const { return *mControls; }
  WordWorld& World() const { return mWorld; }

 protected:
  std::string ObjectName() const override { return "bar " + ToUtf8(mName); }
  MemberTable Members() const override;

 private:
  static constexpr Long kNoCustomizing = 1;

  Variant NameMember(const Call& call);
  Variant VisibleMember(const Call& call);
  Variant PositionMember(const Call& call);
  Variant RowIndexMember(const Call& call);
  Variant LeftMember(const Call& call);
  Variant ProtectionMember(const Call& call);
  Variant ControlsMember(const Call& call);
  Long LastRow() const;

  WordWorld& mWorld;
  String mName;
  BarKind mKind;
  bool mIsVisible = true;
  BarPosition mPosition;
  Long mRowIndex = 1;
  Long mLeft = 0;
  Long mProtection;
  Ref<BarControls> mControls;
};

// Application.CommandBars.
class CommandBarsObject final : public SimCollection {
 public:
  CommandBarsObject(Ref<ObjectUses> uses, const WordWorld& world) : SimCollection(std::move(uses)), mWorld(world) {}
  Long Count() const override;
  Object At(Long position) const override;

 protected:
  std::string ObjectName() const override { return "CommandBars"; }
  MemberTable Members() const override;

 private:
  Variant ItemMember(const Call& call);
  const WordWorld& mWorld;
};

}  // namespace strandline::wordsim
