// What one member costs on its way from the typed facade through the seam into the XML and back.

#include <benchmark/benchmark.h>

#include "deck/embedded_host.h"
#include "decks/deck_builder.h"
#include "support/temp_folder.h"

namespace {

using namespace vellumark;

/// A slide with one turned rectangle, open in a window.
struct OneShape {
  OneShape() {
    decks::DeckBuilder builder;
    builder.slide().shape("rect", 10, 20, 100, 50).rotate(30).named("Box");
    builder.save(folder.path("deck.pptx"));
    shape = host.open(folder.path("deck.pptx")).Slides().Item(1).Shapes().Item(1);
  }
  test::TempFolder folder;
  deck::EmbeddedHost host;
  host::Shape shape;
};

void readLeft(benchmark::State& state) {
  const OneShape deck;
  for (auto _ : state) benchmark::DoNotOptimize(deck.shape.Left());
}
BENCHMARK(readLeft);

void readRotation(benchmark::State& state) {
  const OneShape deck;
  for (auto _ : state) benchmark::DoNotOptimize(deck.shape.Rotation());
}
BENCHMARK(readRotation);

void writeLeft(benchmark::State& state) {
  const OneShape deck;
  float left = 0;
  for (auto _ : state) deck.shape.Left(left += 0.25F);
}
BENCHMARK(writeLeft);

void findShapeByName(benchmark::State& state) {
  const OneShape deck;
  const host::Shapes shapes = deck.host.application().ActivePresentation().Slides().Item(1).Shapes();
  for (auto _ : state) benchmark::DoNotOptimize(shapes.Item("Box").object());
}
BENCHMARK(findShapeByName);

}  // namespace

BENCHMARK_MAIN();
