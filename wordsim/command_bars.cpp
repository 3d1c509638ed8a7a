#include "wordsim/command_bars.h"

#include <algorithm>

#include "wordsim/word_world.h"

namespace strandline::wordsim {

namespace {

constexpr Long kRowLast = -1;
constexpr Long kMostRows = 1000;

}  // namespace

CommandBar::CommandBar(Ref<ObjectUses> uses, WordWorld& world, const String& name, BarKind kind, BarPosition position)
    : SimObject(uses),
      mWorld(world),
      mName(name),
      mKind(kind),
      mPosition(position),
      mProtection(kind == BarKind::kProduct ? kNoCustomizing : 0),
      mControls(New<BarControls>(uses, *this, nullptr)) {}

MemberTable CommandBar::Members() const {
  static constexpr Member kMembers[] = {
      Writable<&CommandBar::VisibleMember>("Visible"),   Readable<&CommandBar::ControlsMember>("Controls"),
      Writable<&CommandBar::PositionMember>("Position"), Writable<&CommandBar::RowIndexMember>("RowIndex"),
      Writable<&CommandBar::LeftMember>("Left"),         Writable<&CommandBar::ProtectionMember>("Protection"),
      Readable<&CommandBar::NameMember>("Name"),
  };
  return kMembers;
}

Variant CommandBar::NameMember(const Call&) { return mName; }
Variant CommandBar::ControlsMember(const Call&) { return Object(mControls); }

Variant CommandBar::VisibleMember(const Call& call) {
  if (!call.IsLet()) return mIsVisible;
  const bool visible = call.Value().ToBoolean();
  if (visible != mIsVisible) {
    mIsVisible = visible;
    mWorld.BarsChanged();
  }
  return {};
}

Variant CommandBar::PositionMember(const Call& call) {
  if (!call.IsLet()) return static_cast<Long>(mPosition);
  const Long position = call.Value().ToLong();
  if (position < 0 || position > static_cast<Long>(BarPosition::kFloating)) Raise(errors::kInvalidArgument);
  mPosition = static_cast<BarPosition>(position);
  mWorld.BarRepositioned(*this);
  return {};
}

Long CommandBar::LastRow() const {
  Long last = 0;
  for (const auto& bar : mWorld.Bars()) {
    if (bar.get() != this && bar->IsVisible() && bar->mPosition == mPosition) last = std::max(last, bar->mRowIndex);
  }
  return last + 1;
}

Variant CommandBar::RowIndexMember(const Call& call) {
  if (!call.IsLet()) return mRowIndex;
  const Long row = call.Value().ToLong();
  if (row < kRowLast || row > kMostRows) Raise(errors::kInvalidArgument);
  mRowIndex = row == kRowLast ? LastRow() : row;
  mWorld.BarsChanged();
  return {};
}

Variant CommandBar::LeftMember(const Call& call) {
  if (!call.IsLet()) return mLeft;
  mLeft = call.Value().ToLong();
  mWorld.BarsChanged();
  return {};
}

Variant CommandBar::ProtectionMember(const Call& call) {
  if (!call.IsLet()) return mProtection;
  mProtection = call.Value().ToLong();
  return {};
}

Long CommandBarsObject::Count() const { return static_cast<Long>(mWorld.Bars().size()); }
Object CommandBarsObject::At(Long position) const { return mWorld.Bars()[static_cast<std::size_t>(position - 1)]; }

MemberTable CommandBarsObject::Members() const {
  static constexpr Member kMembers[] = {
      Readable<&CommandBarsObject::ItemMember>("Item", 1),
      Readable<&CommandBarsObject::CountMember>("Count"),
  };
  return kMembers;
}

Variant CommandBarsObject::ItemMember(const Call& call) {
  const Variant index = call.Argument(0).Resolved();
  if (const String* name = index.If<String>()) {
    for (const auto& bar : mWorld.Bars()) {
      if (SameText(bar->Name(), *name)) return Object(bar);
    }
    Raise(errors::kInvalidArgument);
  }
  const Long position = index.ToLong();
  if (position < 1 || position > Count()) Raise(errors::kSubscriptOutOfRange);
  return At(position);
}

}  // namespace strandline::wordsim
