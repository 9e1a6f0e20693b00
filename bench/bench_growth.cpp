// How cost grows with a deck: whole processes on decks that are twice as large each time. A row tells the
// time that a process takes (user and system), its memory, and the growth from the row above, 1 being linear.
//
//   bench_growth [PROGRAM [CASE...]]      PROGRAM is build/vellumark unless told otherwise, "-" as well

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "decks/deck_builder.h"
#include "quiet_settings.h"
#include "support/temp_folder.h"

namespace {

using namespace vellumark;
using decks::DeckBuilder;
using decks::SlideBuilder;
using Words = std::vector<std::string>;

struct Cost {
  double seconds = 0;    ///< user and system
  double elapsed = 0;    ///< seconds
  double megabytes = 0;  ///< at most at any time
  bool done = false;
};

/// Runs a program with its output thrown away.
Cost runOnce(Words words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t quiet;
  posix_spawn_file_actions_init(&quiet);
  for (const int output : {1, 2}) posix_spawn_file_actions_addopen(&quiet, output, "/dev/null", O_WRONLY, 0);
  Cost cost;
  pid_t child = 0;
  const auto start = std::chrono::steady_clock::now();
  if (posix_spawn(&child, words.front().c_str(), &quiet, nullptr, arguments.data(), environ) == 0) {
    int status = -1;
    rusage used{};
    cost.done = wait4(child, &status, 0, &used) == child && status == 0;
    const auto seconds = [](const timeval& time) {
      return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    cost.seconds = seconds(used.ru_utime) + seconds(used.ru_stime);
    cost.megabytes = static_cast<double>(used.ru_maxrss) / 1024;
    cost.elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }
  posix_spawn_file_actions_destroy(&quiet);
  return cost;
}

/// The best of some runs, of few where one is long.
Cost run(const Words& words) {
  constexpr double enough = 1;
  Cost best = runOnce(words);
  double spent = best.elapsed;
  for (int i = 0; i < 4 && best.done && spent < enough; ++i) {
    const Cost next = runOnce(words);
    spent += next.elapsed;
    if (next.seconds < best.seconds) best = next;
  }
  return best;
}

std::string references(int count) {
  std::string list;
  for (int i = 1; i <= count; ++i) list += (i > 1 ? ",@" : "@") + std::to_string(i);
  return list;
}

void addBoxes(const SlideBuilder& slide, int count) {
  for (int i = 0; i < count; ++i) slide.shape("rect", i * 7 % 900, i * 3 % 500, 40, 20).rotate(i % 4 * 90);
}

std::string boxes(const test::TempFolder& folder, int count) {
  DeckBuilder deck;
  addBoxes(deck.slide(), count);
  deck.save(folder.path("deck.pptx"));
  return folder.path("deck.pptx");
}

std::string slides(const test::TempFolder& folder, int count) {
  DeckBuilder deck;
  for (int i = 0; i < count; ++i) addBoxes(deck.slide(), 2);
  deck.save(folder.path("deck.pptx"));
  return folder.path("deck.pptx");
}

/// Boxes, each joined to the next one.
std::string chain(const test::TempFolder& folder, int count) {
  DeckBuilder deck;
  const SlideBuilder slide = deck.slide();
  std::vector<decks::ShapeBuilder> all;
  for (int i = 0; i < count; ++i) all.push_back(slide.shape("rect", i * 7 % 900, i * 3 % 500, 40, 20));
  for (std::size_t i = 1; i < all.size(); ++i) {
    slide.connector("straightConnector1", 0, 0, 10, 10).glue(all[i - 1], 3, all[i], 1);
  }
  deck.save(folder.path("deck.pptx"));
  return folder.path("deck.pptx");
}

enum class TextOf { words, runs, paragraphs };
std::string text(const test::TempFolder& folder, int count, TextOf kind) {
  DeckBuilder deck;
  const SlideBuilder slide = deck.slide();
  std::string whole;
  for (int i = 0; i < count && kind != TextOf::runs; ++i) {
    whole += "word " + std::to_string(i % 1000) + (kind == TextOf::words ? " " : "\n");
  }
  const auto box = slide.textBox(10, 10, 600, 400, whole.empty() ? "first" : whole);
  for (int i = 0; i < count && kind == TextOf::runs; ++i) {
    box.run("word " + std::to_string(i % 1000), {.bold = i % 2 == 0});
  }
  slide.textBox(10, 10, 100, 100, "other");
  deck.save(folder.path("deck.pptx"));
  return folder.path("deck.pptx");
}

/// A group of many boxes, and a box.
std::string groups(const test::TempFolder& folder, int count) {
  DeckBuilder deck;
  const SlideBuilder slide = deck.slide();
  const auto group = slide.group(0, 0, 940, 520).children();
  for (int i = 0; i < count; ++i) group.shape("rect", i * 7 % 900, i * 3 % 500, 40, 20);
  slide.shape("rect", 30, 30, 40, 20);
  deck.save(folder.path("deck.pptx"));
  return folder.path("deck.pptx");
}

std::string topics(const test::TempFolder& folder, int count) {
  std::ofstream list(folder.path("topics.txt"));
  for (int i = 1; i <= count; ++i) list << "Topic number " << i << '\n';
  return folder.path("topics.txt");
}

/// A deck of so many megabytes, in a part that can't be compressed.
std::string media(const test::TempFolder& folder, int megabytes) {
  DeckBuilder deck;
  const SlideBuilder slide = deck.slide();
  addBoxes(slide, 2);
  deck.save(folder.path("deck.pptx"));
  {
    std::ofstream noise(folder.path("noise.bin"), std::ios::binary);
    std::mt19937_64 random(1);
    for (int i = 0; i < megabytes * (1 << 17); ++i) {
      const std::uint64_t word = random();
      noise.write(reinterpret_cast<const char*>(&word), sizeof word);
    }
  }
  runOnce({"/usr/bin/zip", "-0", "-j", "-q", folder.path("deck.pptx"), folder.path("noise.bin")});
  return folder.path("deck.pptx");
}

struct Case {
  const char* name;
  std::vector<int> sizes;
  /// The arguments of the program, its deck made.
  std::function<Words(const test::TempFolder& folder, int size)> make;
};

Words onDeck(const test::TempFolder& folder, const std::string& command, const std::string& deck,
             const std::string& select) {
  return {"run", command, deck, "--select", select, "-o", folder.path("out.pptx"), "--root", BENCH_PRODUCT};
}

std::vector<Case> cases() {
  const std::vector<int> shapes{250, 500, 1000, 2000, 4000};
  const std::vector<int> slideCounts{500, 1000, 2000, 5000};
  const std::vector<int> textSizes{12'500, 25'000, 50'000, 100'000};
  return {
      {"select and align", shapes,
       [](const auto& folder, int size) {
         return onDeck(folder, "alignLefts", boxes(folder, size), references(size));
       }},
      {"align two of many",
       {1500, 3000, 6000, 12'000},
       [](const auto& folder, int size) {
         return onDeck(folder, "alignLefts", boxes(folder, size), "@1,@2");
       }},
      {"align a chain", shapes,
       [](const auto& folder, int size) {
         return onDeck(folder, "alignLefts", chain(folder, size), references(size));
       }},
      {"align a group", shapes,
       [](const auto& folder, int size) {
         return onDeck(folder, "alignLefts", groups(folder, size), "@1,@2");
       }},
      {"show shapes", shapes,
       [](const auto& folder, int size) {
         return Words{"show", boxes(folder, size)};
       }},
      {"save slides", slideCounts,
       [](const auto& folder, int size) {
         return onDeck(folder, "alignLefts", slides(folder, size), "@1,@2");
       }},
      {"show slides", slideCounts,
       [](const auto& folder, int size) {
         return Words{"show", slides(folder, size)};
       }},
      {"agenda",
       {25, 50, 100},
       [](const auto& folder, int size) {
         DeckBuilder deck;
         deck.slide("titleOnly");
         deck.save(folder.path("deck.pptx"));
         return Words{"agenda", folder.path("deck.pptx"), "--items", topics(folder, size), "--pages",
                      "-o",     folder.path("out.pptx"),  "--root",  BENCH_PRODUCT};
       }},
      {"fit long text", textSizes,
       [](const auto& folder, int size) {
         return onDeck(folder, "adjustAutoShapeToText", text(folder, size, TextOf::words), "@1");
       }},
      {"many runs", textSizes,
       [](const auto& folder, int size) {
         return onDeck(folder, "addIndent", text(folder, size, TextOf::runs), "@1");
       }},
      {"many paragraphs", textSizes,
       [](const auto& folder, int size) {
         return onDeck(folder, "addIndent", text(folder, size, TextOf::paragraphs), "@1");
       }},
      {"megabytes",
       {25, 50, 100},
       [](const auto& folder, int size) {
         return onDeck(folder, "alignLefts", media(folder, size), "@1,@2");
       }},
  };
}

void measure(const std::string& program, const Case& one) {
  std::printf("%-20s %8s %10s %10s %8s %7s\n", one.name, "size", "ms", "elapsed", "MB", "growth");
  double before = 0;
  int smaller = 0;
  for (const int size : one.sizes) {
    const test::TempFolder folder;
    Words words = one.make(folder, size);
    words.insert(words.begin(), program);
    const Cost cost = run(words);
    std::printf("%-20s %8d %10.1f %10.1f %8.0f", cost.done ? "" : "  (failed)", size, cost.seconds * 1e3,
                cost.elapsed * 1e3, cost.megabytes);
    if (smaller > 0) std::printf(" %7.2f", cost.seconds / before * smaller / size);
    std::printf("\n");
    std::fflush(stdout);
    before = cost.seconds;
    smaller = size;
    if (cost.elapsed > 30) break;  // what comes next would take longer still
  }
}

}  // namespace

int main(int count, char** words) {
  const bench::QuietSettings settings;
  const std::string program = count > 1 && std::string(words[1]) != "-" ? words[1] : BENCH_PROGRAM;
  const std::vector<std::string> wanted(words + std::min(count, 2), words + count);
  for (const Case& one : cases()) {
    const bool chosen = wanted.empty() || std::ranges::any_of(wanted, [&](const std::string& part) {
                          return std::string(one.name).find(part) != std::string::npos;
                        });
    if (chosen) measure(program, one);
  }
}
