// The simulated screen: rasters, PAINT, pictures, scrolling, and painting into a frame. The figures
// beside the names are what a run of programs wants of them.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "common/clock.h"
#include "run/screen/basic_rsrc.h"
#include "run/screen/compose.h"
#include "run/screen/graphics.h"

namespace zoka {
namespace {

/// A screen of its own for each benchmark, in a 400-line mode.
struct TBench {
  TBench() : clock(make_simulated_clock()), rsrc(*clock), graphics(rsrc), painter(rsrc) {
    rsrc.SetGrphYScale(1);
  }
  std::unique_ptr<TClock> clock;
  TBasicRsrc rsrc;
  TGraphics graphics;
  TScreenPainter painter;
  TFrameBuffer frame;
};

void screen_pset(benchmark::State& state) {
  TBench bench;
  float x = 0;
  for (auto _ : state) {
    bench.graphics.Pset({x, 200}, 7);
    x = x < 639 ? x + 1 : 0;
  }
}
BENCHMARK(screen_pset);

/// Wanted: below 333 ns.
void screen_line_horizontal(benchmark::State& state) {
  TBench bench;
  for (auto _ : state) bench.graphics.Line({0, 200}, {639, 200}, 7);
}
BENCHMARK(screen_line_horizontal);

/// Wanted: below 1,428 ns.
void screen_line_sloped(benchmark::State& state) {
  TBench bench;
  for (auto _ : state) bench.graphics.Line({0, 17}, {639, 391}, 7);
}
BENCHMARK(screen_line_sloped);

/// The same with its ends far outside: no slower.
void screen_line_far(benchmark::State& state) {
  TBench bench;
  for (auto _ : state) bench.graphics.Line({-1e9f, -1e9f}, {1e9f, 1.1e9f}, 7);
}
BENCHMARK(screen_line_far);

/// Wanted: below 200 us.
void screen_box_whole(benchmark::State& state) {
  TBench bench;
  for (auto _ : state) bench.graphics.FillRect({0, 0}, {639, 399}, 7);
}
BENCHMARK(screen_box_whole);

void screen_circle(benchmark::State& state) {
  TBench bench;
  for (auto _ : state) bench.graphics.StrokeEllipse({320, 200}, {100, 100}, 7);
}
BENCHMARK(screen_circle);

/// The screen lies inside it: the cost is that of the screen's rows.
void screen_circle_far(benchmark::State& state) {
  TBench bench;
  for (auto _ : state) bench.graphics.StrokeEllipse({1e7f, 200}, {1e7f, 1e7f}, 7);
}
BENCHMARK(screen_circle_far);

void screen_pie_whole(benchmark::State& state) {
  TBench bench;
  for (auto _ : state) bench.graphics.FillArc({320, 200}, {400, 400}, 7, {10, 300, false, false});
}
BENCHMARK(screen_pie_whole);

/// Wanted: below 3 ms.
void screen_paint_whole(benchmark::State& state) {
  TBench bench;
  int8_t color = 1;
  for (auto _ : state) {
    bench.graphics.Paint({320, 200}, color, 7);
    color = color == 1 ? 2 : 1;
  }
}
BENCHMARK(screen_paint_whole);

/// Wanted: below 2 us.
void screen_put_32_by_32(benchmark::State& state) {
  TBench bench;
  bench.graphics.FillEllipse({16, 16}, {15, 15}, 5);
  const TGrphBlock block = bench.graphics.GetBlock({0, 0}, {31, 31});
  for (auto _ : state) bench.graphics.PutBlock({300, 200}, block, TPutMode::Xor);
}
BENCHMARK(screen_put_32_by_32);

void screen_roll(benchmark::State& state) {
  TBench bench;
  bench.graphics.FillRect({0, 0}, {100, 100}, 5);
  for (auto _ : state) bench.graphics.Roll(1, 1, 0);
}
BENCHMARK(screen_roll);

/// Wanted: below 5 us.
void screen_print_scrolling(benchmark::State& state) {
  TBench bench;
  const std::string row = "0123456789 the quick brown fox";
  for (auto _ : state) {
    bench.rsrc.Print(row);
    bench.rsrc.DoCRLF();
  }
}
BENCHMARK(screen_print_scrolling);

/// Wanted: below 1 ms.
void screen_repaint_2000_characters(benchmark::State& state) {
  TBench bench;
  bench.graphics.FillRect({0, 0}, {639, 399}, 1);
  for (int32_t row = 0; row < 25; ++row) {
    bench.rsrc.SetCursorPos(row * 80);
    // The last cell would scroll.
    bench.rsrc.Print(std::string(row < 24 ? 80 : 79, static_cast<char>('A' + row)));
  }
  for (auto _ : state) {
    bench.rsrc.SetScrModifiedAll2();
    benchmark::DoNotOptimize(bench.painter.DrawBasic(bench.frame, true));
  }
}
BENCHMARK(screen_repaint_2000_characters);

void screen_repaint_one_cell(benchmark::State& state) {
  TBench bench;
  for (auto _ : state) {
    bench.rsrc.SetCursorPos(500);
    bench.rsrc.Print("A");
    benchmark::DoNotOptimize(bench.painter.DrawBasic(bench.frame, true));
  }
}
BENCHMARK(screen_repaint_one_cell);

}  // namespace
}  // namespace zoka
