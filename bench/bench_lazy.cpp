// Opening a long deck: no slide is parsed that nobody asks for. The counters tell how many of its parts were.

#include <benchmark/benchmark.h>

#include "deck/embedded_host.h"
#include "decks/deck_builder.h"
#include "support/temp_folder.h"

namespace {

using namespace vellumark;

constexpr int slideCount = 500;

const std::string& longDeck() {
  static const test::TempFolder folder;
  static const std::string path = [] {
    decks::DeckBuilder builder;
    for (int i = 0; i < slideCount; ++i) {
      auto slide = builder.slide("titleOnly");
      slide.placeholder("title").text("Slide " + std::to_string(i + 1));
      for (int shape = 0; shape < 20; ++shape) slide.shape("rect", 40.0 * shape, 100, 30, 30).text("Text");
    }
    const std::string file = folder.path("long.pptx");
    builder.save(file);
    return file;
  }();
  return path;
}

int parsedSlides(const deck::EmbeddedHost& host) {
  deck::Package& package = host.state()->documents.front()->package();
  int parsed = 0;
  for (const std::string& name : package.partNames()) {
    if (name.starts_with("ppt/slides/slide") && package.part(name)->parsed()) ++parsed;
  }
  return parsed;
}

void openWithoutWindow(benchmark::State& state) {
  int parsed = 0;
  for (auto _ : state) {
    const deck::EmbeddedHost host;
    benchmark::DoNotOptimize(
        host.application().Presentations().Open(longDeck(), true, false, false).object());
    state.PauseTiming();
    parsed = parsedSlides(host);
    state.ResumeTiming();
  }
  state.counters["slides"] = slideCount;
  state.counters["slides parsed"] = parsed;
}
BENCHMARK(openWithoutWindow)->Unit(benchmark::kMillisecond);

void openAndReadOneSlide(benchmark::State& state) {
  int parsed = 0;
  for (auto _ : state) {
    deck::EmbeddedHost host;
    benchmark::DoNotOptimize(host.open(longDeck()).Slides().Item(250).Shapes().Count());
    state.PauseTiming();
    parsed = parsedSlides(host);
    state.ResumeTiming();
  }
  state.counters["slides"] = slideCount;
  state.counters["slides parsed"] = parsed;
}
BENCHMARK(openAndReadOneSlide)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
