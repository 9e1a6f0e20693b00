// Opening a deck, one command, saving: within one process, and as a process of its own.

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

#include <filesystem>

#include "press.h"
#include "questions.h"
#include "quiet_settings.h"
#include "session.h"

namespace {

using namespace vellumark;

/// A deck of 48 slides where it is at hand, otherwise the sample.
std::string deckPath() {
  const std::string large = BENCH_SHARED_DECKS "/poi-2411-Performance_Up.pptx";
  return std::filesystem::exists(large) ? large : BENCH_PRODUCT "/samples/quarterly_review.pptx";
}

/// The first slide with two shapes, from 1.
int slideWithShapes(const host::Presentation& presentation) {
  const host::Slides slides = presentation.Slides();
  for (int i = 1; i <= slides.Count(); ++i) {
    if (slides.Item(i).Shapes().Count() >= 2) return i;
  }
  return 1;
}

int slideInDeck() {
  const deck::EmbeddedHost host;
  return slideWithShapes(host.application().Presentations().Open(deckPath(), true, false, false));
}

void withinProcess(benchmark::State& state) {
  const bench::QuietSettings settings;
  const test::TempFolder folder;
  const std::string out = folder.path("out.pptx");
  const int slide = slideInDeck();
  const auto questions = app::scriptedQuestions({}, {});
  for (auto _ : state) {
    app::Session session("14.0", app::builtInAddIn(BENCH_PRODUCT));
    session.open(deckPath());
    session.goToSlide(slide);
    session.selectShapes("@1,@2");
    app::press(session, app::findCommand("alignLefts"));
    session.save(out);
  }
}
BENCHMARK(withinProcess)->Unit(benchmark::kMillisecond);

/// Runs the program with its output thrown away and waits for it; its exit status.
int runProgram(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t quiet;
  posix_spawn_file_actions_init(&quiet);
  posix_spawn_file_actions_addopen(&quiet, 1, "/dev/null", 1, 0);
  posix_spawn_file_actions_addopen(&quiet, 2, "/dev/null", 1, 0);
  pid_t child = 0;
  int status = -1;
  if (posix_spawn(&child, words.front().c_str(), &quiet, nullptr, arguments.data(), environ) == 0) {
    waitpid(child, &status, 0);
  }
  posix_spawn_file_actions_destroy(&quiet);
  return status;
}

void wholeProcess(benchmark::State& state) {
  const bench::QuietSettings settings;
  const test::TempFolder folder;
  const std::string slide = std::to_string(slideInDeck());
  for (auto _ : state) {
    const int status =
        runProgram({BENCH_PROGRAM, "run", "alignLefts", deckPath(), "--slide", slide, "--select", "@1,@2",
                    "-o", folder.path("out.pptx"), "--root", BENCH_PRODUCT});
    if (status != 0) state.SkipWithError("the program failed");
  }
}
BENCHMARK(wholeProcess)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The share of the process's own start.
void startOnly(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(runProgram({BENCH_PROGRAM, "--version"}));
}
BENCHMARK(startOnly)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
