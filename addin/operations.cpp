#include "addin/operations.h"

#include "addin/Main2.h"

namespace strandline {

namespace {

using Given = ReceivedArguments&;

constexpr Parameter kInitialize[] = {{"word", ParameterKind::kObject},
                                     {"properties", ParameterKind::kObject},
                                     {"productState", ParameterKind::kObject},
                                     {"productName", ParameterKind::kString}};
constexpr Parameter kCommand[] = {{"command", ParameterKind::kString}};
constexpr Parameter kValue[] = {{"value", ParameterKind::kBoolean}};
constexpr Parameter kStartedFromIcon[] = {{"startedFromIcon", ParameterKind::kBoolean}};
constexpr Parameter kDoc[] = {{"doc", ParameterKind::kObject}};

// An operation without parameters.
template <auto kOperation>
Variant Run(Main2& main, Given) {
  if constexpr (std::is_void_v<decltype((main.*kOperation)())>) {
    (main.*kOperation)();
    return {};
  } else {
    return (main.*kOperation)();
  }
}

Variant RunInitialize(Main2& main, Given given) {
  main.Initialize(given[0].Target(), given[1].Target(), given[2].Target(), given[3].Text());
  return {};
}
Variant RunExecute(Main2& main, Given given) { return main.Execute(given[0].Text()); }
Variant RunEnableGotoQuickBookmark(Main2& main, Given given) {
  main.EnableGotoQuickBookmark(given[0].Flag());
  return {};
}
Variant RunHandleCreateDocument(Main2& main, Given given) {
  main.HandleCreateDocument(given[0].Flag());
  return {};
}
Variant RunHandleCloseDocument(Main2& main, Given given) { return main.HandleCloseDocument(given[0].Target()); }

constexpr Main2Operation kTable[] = {
    {"Initialize", false, kInitialize, &RunInitialize},
    {"Execute", false, kCommand, &RunExecute},
    {"EnableGotoQuickBookmark", false, kValue, &RunEnableGotoQuickBookmark},
    {"RibbonHandler", true, {}, &Run<&Main2::RibbonHandler>},
    {"ReadingMode", false, {}, &Run<&Main2::ReadingMode>},
    {"ReadingModeLayout", false, {}, &Run<&Main2::ReadingModeLayout>},
    {"CloseReadingMode", false, {}, &Run<&Main2::CloseReadingMode>},
    {"ToggleLumivex", false, {}, &Run<&Main2::ToggleLumivex>},
    {"FilePrintPreview2", false, {}, &Run<&Main2::FilePrintPreview2>},
    {"ClosePreview", false, {}, &Run<&Main2::ClosePreview>},
    {"ShrinkToolbar", false, {}, &Run<&Main2::ShrinkToolbar>},
    {"ProductNameChanged", false, {}, &Run<&Main2::ProductNameChanged>},
    {"OpenUserManual", false, {}, &Run<&Main2::OpenUserManual>},
    {"UseQuillmere", false, {}, &Run<&Main2::UseQuillmere>},
    {"HandleCreateDocument", false, kStartedFromIcon, &RunHandleCreateDocument},
    {"HandleDocumentChange", false, {}, &Run<&Main2::HandleDocumentChange>},
    {"HandleCloseDocument", false, kDoc, &RunHandleCloseDocument},
    {"ClickOnAd", false, {}, &Run<&Main2::ClickOnAd>},
    {"Quit", false, {}, &Run<&Main2::Quit>},
};

}  // namespace

constinit const std::span<const Main2Operation> kMain2Operations = kTable;

Variant Main2Operation::Invoke(Main2& main, const Arguments& given) const {
  ReceivedArguments arguments(parameters, given);
  const Variant answer = run(main, arguments);
  arguments.GiveBack();
  return answer;
}

Variant Main2::Invoke(Use use, Name member, const Arguments& arguments) {
  const Main2Operation* const operation = Main2Operation::Find(member);
  if (!operation || use == Use::kLet) Raise(errors::kNoSuchMember);
  return operation->Invoke(*this, arguments);
}

}  // namespace strandline
