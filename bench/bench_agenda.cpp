// An agenda from nothing: each item has a slide with a row for every item. The counter tells the cost of a
// row.

#include <benchmark/benchmark.h>

#include "agenda/agenda_wizard.h"
#include "core/globals.h"
#include "decks/deck_builder.h"
#include "questions.h"
#include "quiet_settings.h"
#include "session.h"

namespace {

using namespace vellumark;

void makeAgenda(benchmark::State& state, const std::string& style) {
  const bench::QuietSettings settings;
  const test::TempFolder folder;
  decks::DeckBuilder builder;
  builder.slide("titleOnly");
  builder.save(folder.path("deck.pptx"));
  const auto count = static_cast<int>(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    const auto questions = app::scriptedQuestions({}, {});
    app::Session session("14.0", app::builtInAddIn(BENCH_PRODUCT));
    session.open(folder.path("deck.pptx"));
    core::globals().currentStyle = style;
    agenda::AgendaWizard wizard;
    wizard.load();
    while (!wizard.tvItems.selectedKey().empty()) wizard.click(wizard.btnDeleteItem);
    for (int i = 1; i <= count; ++i) {
      wizard.click(wizard.btnAddItem);
      wizard.tbAgendaItem.text("Topic number " + std::to_string(i));
      wizard.tbResponsible.text("A. Meyer");
    }
    wizard.cbShowTimeSlots.value(true);
    wizard.cbShowResponsible.value(true);
    state.ResumeTiming();
    wizard.OK();
    state.PauseTiming();
    if (session.presentation().Slides().Count() != count + 1) state.SkipWithError("slides are missing");
    state.ResumeTiming();
  }
  state.counters["rows"] =
      benchmark::Counter(static_cast<double>(count) * count, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK_CAPTURE(makeAgenda, boxes, "Vellumark Blue")->Arg(10)->Arg(40)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(makeAgenda, bars, "Vellumark Grey")->Arg(10)->Arg(40)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
