#include "tests/toolbar/toolbar_fixture.h"

#include "tests/toolbar/fake_ads.h"

namespace strandline {

void ToolbarTest::Begin(const wordsim::Settings& settings, Long dpi) {
  if (world) trace().Listen(0);
  toolbar = nullptr;
  if (world) CheckErrors();
  world.reset();
  world = std::make_unique<ToolbarWorld>(settings, dpi);
  world->Start();
  world->OpenInWord(kDocument);
  world->Settle();
}

void ToolbarTest::MakeToolbar() {
  toolbar = New<Toolbar>();
  toolbar->Initialize(world->Top());
  world->Settle();
}

void ToolbarTest::BeginWithoutAds(const wordsim::Settings& settings) {
  Begin(settings);
  ToolbarUtilities::variables.adFactory = New<NoAds>();
  MakeToolbar();
}

void ToolbarTest::TearDown() {
  if (!world) return;
  trace().Listen(0);
  trace().during = nullptr;
  toolbar = nullptr;
  CheckErrors();
}

void ToolbarTest::CheckErrors() {
  EXPECT_EQ(TakeErrors(), "");
  EXPECT_EQ(TakeMisuses(), "");
}

std::string ToolbarTest::TakeErrors() {
  const Trace::Lines asked = world->errors.Asked();
  world->errors.questions.clear();
  return AsText(asked);
}

std::string ToolbarTest::TakeMisuses() {
  const Trace::Lines misused = world->Misused();
  world->desk.Misuses().Clear();
  return AsText(misused);
}

void ToolbarTest::PassOverFormerFrames() {
  for (const std::string& line : world->Misused()) EXPECT_TRUE(line.starts_with("BitBlt: dead: dc ")) << line;
  world->desk.Misuses().Clear();
}

Buttons& ToolbarTest::Strip() {
  const VariableSnapshot variables = VariableSnapshot::Of(*toolbar);
  auto* const strip = dynamic_cast<Buttons*>(variables[u"mButtons"].ToObject().Target());
  if (!strip) throw std::logic_error("the toolbar has no strip");
  return *strip;
}

Rect ToolbarTest::BoundingRect() {
  return {StripNumber(u"mBoundingRect.left"), StripNumber(u"mBoundingRect.top"), StripNumber(u"mBoundingRect.right"),
          StripNumber(u"mBoundingRect.bottom")};
}

ButtonRect ToolbarTest::Cell(Long index) {
  const VariableSnapshot variables = VariableSnapshot::Of(Strip());
  const String name = Concat({u"mButtons(", DecimalText(index - 1), u")"});
  const auto number = [&](const char16_t* field) { return variables.Number(Concat({name, field})); };
  return {variables.Flag(Concat({name, u".isPriorityDropped"})), number(u".left"), number(u".top"), number(u".right"),
          number(u".bottom")};
}

}  // namespace strandline
