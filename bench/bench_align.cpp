// Aligning 1,000 selected shapes through the whole road: ribbon button, selection watch, tools, host, XML.

#include <benchmark/benchmark.h>

#include "decks/deck_builder.h"
#include "press.h"
#include "questions.h"
#include "quiet_settings.h"
#include "session.h"

namespace {

using namespace vellumark;

void alignShapes(benchmark::State& state, const std::string& command) {
  const bench::QuietSettings settings;
  const test::TempFolder folder;
  decks::DeckBuilder builder;
  auto slide = builder.slide();
  for (int i = 0; i < state.range(0); ++i) {
    slide.shape("rect", i % 900, i % 500, 40, 20).rotate(i % 4 * 90);
  }
  builder.save(folder.path("deck.pptx"));

  const auto questions = app::scriptedQuestions({}, {});
  app::Session session("14.0", app::builtInAddIn(BENCH_PRODUCT));
  session.open(folder.path("deck.pptx"));
  const host::Shapes shapes = session.shapesInView();
  std::vector<host::Shape> all;
  for (int i = 1; i <= shapes.Count(); ++i) all.push_back(shapes.Item(i));
  session.select(all);
  const app::CommandCall call = app::findCommand(command);
  for (auto _ : state) app::press(session, call);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(alignShapes, alignLefts, "alignLefts")->Arg(10)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(alignShapes, alignWidthsAndHeights, "alignWidthsAndHeights")
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
