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

template <class Result, class... Arguments>
constexpr std::optional<ParameterKind> ResultOf(Result (Main2::*)(Arguments...)) {
  if constexpr (std::is_same_v<Result, Boolean>) return ParameterKind::kBoolean;
  if constexpr (std::is_same_v<Result, String>) return ParameterKind::kString;
  if constexpr (std::is_same_v<Result, Object>) return ParameterKind::kObject;
  return std::nullopt;
}

template <auto kOperation>
constexpr Main2Operation Plain(Name name, bool isProperty = false) {
  return {name, isProperty, {}, ResultOf(kOperation), &Run<kOperation>};
}

template <auto kOperation>
constexpr Main2Operation With(Name name, std::span<const Parameter> parameters, Variant (*run)(Main2&, Given)) {
  return {name, false, parameters, ResultOf(kOperation), run};
}

constexpr Main2Operation kTable[] = {
    With<&Main2::Initialize>("Initialize", kInitialize, &RunInitialize),
    With<&Main2::Execute>("Execute", kCommand, &RunExecute),
    With<&Main2::EnableGotoQuickBookmark>("EnableGotoQuickBookmark", kValue, &RunEnableGotoQuickBookmark),
    Plain<&Main2::RibbonHandler>("RibbonHandler", true),
    Plain<&Main2::ReadingMode>("ReadingMode"),
    Plain<&Main2::ReadingModeLayout>("ReadingModeLayout"),
    Plain<&Main2::CloseReadingMode>("CloseReadingMode"),
    Plain<&Main2::ToggleLumivex>("ToggleLumivex"),
    Plain<&Main2::FilePrintPreview2>("FilePrintPreview2"),
    Plain<&Main2::ClosePreview>("ClosePreview"),
    Plain<&Main2::ShrinkToolbar>("ShrinkToolbar"),
    Plain<&Main2::ProductNameChanged>("ProductNameChanged"),
    Plain<&Main2::OpenUserManual>("OpenUserManual"),
    Plain<&Main2::UseQuillmere>("UseQuillmere"),
    With<&Main2::HandleCreateDocument>("HandleCreateDocument", kStartedFromIcon, &RunHandleCreateDocument),
    Plain<&Main2::HandleDocumentChange>("HandleDocumentChange"),
    With<&Main2::HandleCloseDocument>("HandleCloseDocument", kDoc, &RunHandleCloseDocument),
    Plain<&Main2::ClickOnAd>("ClickOnAd"),
    Plain<&Main2::Quit>("Quit"),
};

}  // namespace

constinit const std::span<const Main2Operation> kMain2Operations = kTable;

Variant Main2Operation::Invoke(Main2& main, const Arguments& given) const {
  ReceivedArguments arguments(parameters, given);
  Variant answer = run(main, arguments);
  arguments.GiveBack();
  return answer;
}

Variant Main2::Invoke(Use use, Name member, const Arguments& arguments) {
  const Main2Operation* const operation = Main2Operation::Find(member);
  if (!operation || use == Use::kLet) Raise(errors::kNoSuchMember);
  return operation->Invoke(*this, arguments);
}

}  // namespace strandline
