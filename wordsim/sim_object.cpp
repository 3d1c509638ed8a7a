#include "wordsim/sim_object.h"

#include <algorithm>

namespace strandline::wordsim {

namespace {

UseOp OpOf(Use use) { return use == Use::kGet ? UseOp::kGet : use == Use::kLet ? UseOp::kLet : UseOp::kCall; }

void Tell(ObjectUses& uses, const SimObject& object, Use use, Name member, const Arguments& arguments,
          const Variant* value, const Error* error) {
  ObjectUse told;
  told.object = object.JournalName();
  told.op = OpOf(use);
  told.member = member.Text();
  told.arguments = arguments.positional;
  told.named = arguments.named;
  told.value = value;
  told.error = error;
  if (use == Use::kLet && !arguments.positional.empty()) {
    told.arguments = arguments.positional.first(arguments.positional.size() - 1);
    if (!error) told.value = &arguments.positional.back();
  }
  uses.observer->OnUse(told);
}

// The elements of a collection by position; each step is a use of its own kind.
class ElementWalk final : public Enumerator {
 public:
  ElementWalk(Ref<SimCollection> collection, Ref<ObjectUses> uses)
      : mCollection(std::move(collection)), mUses(std::move(uses)) {}

  bool Next(Variant& element) override {
    try {
      if (mUses->faults.IsArmed()) {
        if (const auto number = mUses->faults.Take(mCollection->JournalName(), "each", {})) Raise(*number);
      }
      if (mCollection->IsGone()) RaiseObjectDeleted();
      if (mPosition >= mCollection->Count()) return false;
      element = mCollection->At(++mPosition);
    } catch (const Error& error) {
      Observe(nullptr, &error);
      throw;
    }
    Observe(&element, nullptr);
    return true;
  }

 private:
  void Observe(const Variant* value, const Error* error) {
    if (!mUses->observer) return;
    ObjectUse told;
    told.object = mCollection->JournalName();
    told.op = UseOp::kEach;
    told.value = value;
    told.error = error;
    mUses->observer->OnUse(told);
  }

  Ref<SimCollection> mCollection;
  Ref<ObjectUses> mUses;
  Long mPosition = 0;
};

}  // namespace

void RaiseNoDocumentOpen() {
  Raise(word_errors::kNoDocumentOpen, u"This command is not available because no document is open.");
}
void RaiseNotAvailable() {
  Raise(word_errors::kNotAvailable, u"This method or property is not available for this document.");
}
void RaiseObjectDeleted() { Raise(word_errors::kObjectDeleted, u"Object has been deleted."); }
void RaiseNoSuchElement() {
  Raise(word_errors::kNoSuchElement, u"The requested member of the collection does not exist.");
}

void ObjectUses::Leave(SimObject* object) {
  const auto at = std::find(mLive.rbegin(), mLive.rend(), object);
  if (at == mLive.rend()) return;
  *at = mLive.back();
  mLive.pop_back();
}

void ObjectUses::EndAll() {
  for (SimObject* object : mLive) object->MarkGone();
  observer = nullptr;
}

SimObject::SimObject(Ref<ObjectUses> uses) : mUses(std::move(uses)) { mUses->Enter(this); }
SimObject::~SimObject() { mUses->Leave(this); }

void SimObject::MarkGone() {
  if (mIsGone) return;
  mLastName = ObjectName();
  mIsGone = true;
}

Long SimObject::Identity() const {
  if (mIdentity == 0) mIdentity = mUses->NextIdentity();
  return mIdentity;
}

Variant SimObject::Invoke(Use use, Name member, const Arguments& arguments) {
  // The use may be the one in which the last holder lets go of the object.
  const Ref<SimObject> alive(this);
  ObjectUses& uses = *mUses;
  if (!uses.observer && !uses.faults.IsArmed()) return Perform(use, member, arguments);
  try {
    if (const auto number = uses.faults.Take(JournalName(), member.Text(), arguments.positional)) {
      Raise(*number);
    }
    Variant value = Perform(use, member, arguments);
    if (uses.observer) Tell(uses, *this, use, member, arguments, &value, nullptr);
    return value;
  } catch (const Error& error) {
    if (uses.observer) Tell(uses, *this, use, member, arguments, nullptr, &error);
    throw;
  }
}

Variant SimObject::Perform(Use use, Name name, const Arguments& arguments) {
  if (mIsGone) RaiseObjectDeleted();
  const Member* member = FindMember(Members(), name);
  if (!member) Raise(errors::kNoSuchMember);
  std::span<const Variant> given = arguments.positional;
  const Variant* value = nullptr;
  if (use == Use::kLet) {
    // What can't be written answers as an invalid property assignment.
    if (member->access != Access::kReadWrite || given.empty()) Raise(errors::kWrongNumberOfArguments);
    value = &given.back();
    given = given.first(given.size() - 1);
  }
  while (!given.empty() && given.back().IsMissing()) given = given.first(given.size() - 1);
  if (given.size() < member->fewest || given.size() > member->most) {
    Raise(errors::kWrongNumberOfArguments);
  }
  if (!arguments.named.empty() && !member->takesNamed) Raise(errors::kNoSuchNamedArgument);
  return member->handler(*this, Call(given, value, arguments.named));
}

Ref<Enumerator> SimCollection::Elements() { return New<ElementWalk>(Ref<SimCollection>(this), SharedUses()); }

std::string JournalNameOf(const Object& object) {
  const auto* ours = dynamic_cast<const SimObject*>(object.Target());
  return ours ? ours->JournalName() : std::string();
}

}  // namespace strandline::wordsim
