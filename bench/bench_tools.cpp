// Commands on many selected shapes through the whole road: button, selection watch, tools, host, XML.

#include <benchmark/benchmark.h>

#include "core/globals.h"
#include "decks/deck_builder.h"
#include "press.h"
#include "questions.h"
#include "quiet_settings.h"
#include "session.h"

namespace {

using namespace vellumark;

/// Runs a command on all shapes of a slide.
template <typename Build>
void pressOn(benchmark::State& state, const std::string& command, Build build,
             const std::vector<std::string>& dialogs = {}) {
  const bench::QuietSettings settings;
  const test::TempFolder folder;
  decks::DeckBuilder builder;
  auto slide = builder.slide();
  for (int i = 0; i < state.range(0); ++i) build(slide, i);
  builder.save(folder.path("deck.pptx"));

  const app::CommandCall call = app::findCommand(command);
  for (auto _ : state) {
    state.PauseTiming();  // each press meets a fresh deck
    const auto questions = app::scriptedQuestions(dialogs, {});
    app::Session session("14.0", app::builtInAddIn(BENCH_PRODUCT));
    core::globals().languageShortcuts[0] = 1031;
    session.open(folder.path("deck.pptx"));
    const host::Shapes shapes = session.shapesInView();
    std::vector<host::Shape> all;
    for (int i = 1; i <= shapes.Count(); ++i) all.push_back(shapes.Item(i));
    session.select(all);
    questions->begin();
    state.ResumeTiming();
    app::press(session, call);
    state.PauseTiming();
    if (questions->settle(command) != app::Exit::done) state.SkipWithError("it could not do its work");
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// Two lines of text in a box of its own, `fit` with the box following its text.
void text(benchmark::State& state, const std::string& command, bool fit,
          const std::vector<std::string>& dialogs = {}) {
  const auto build = [fit](decks::SlideBuilder& slide, int i) {
    const std::string name = "Team " + std::to_string(i);
    auto box = slide.textBox(i % 900, i % 500, 160, 40, name + ": delivers the second release\nin May",
                             {.size = 14});
    if (fit) box.fitToText();
  };
  pressOn(state, command, build, dialogs);
}
const std::vector<std::string> margins = {"MarginInput: tbMargin=0.4; btnOK"};

BENCHMARK_CAPTURE(text, beautifyIndents, "beautifyIndents", false)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(text, beautifyIndents_fitted, "beautifyIndents", true)
    ->Arg(500)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(text, addIndent, "addIndent", false)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(text, removeIndent, "removeIndent", false)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(text, setMargins, "setMargins", false, margins)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(text, setLanguage, "1093", false)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(text, countWords, "countWords", false)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(text, adjustAutoShapeToText, "adjustAutoShapeToText", false)
    ->Arg(500)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(text, wrapText, "wrapText", true)->Arg(500)->Unit(benchmark::kMillisecond);

void processChain(benchmark::State& state) {
  pressOn(state, "processChain", [](decks::SlideBuilder& slide, int i) {
    slide.shape(i == 0 ? "homePlate" : "chevron", i * 40 % 900, 100 + i % 5, 60, 40);
  });
}
BENCHMARK(processChain)->Arg(200)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
