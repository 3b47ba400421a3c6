// SPDX-License-Identifier: GPL-3.0-or-later
// Two texts side by side until the window shows the first difference, against the library's own comparison of them.

#include <git2.h>

#include "bench/comparison.h"
#include "bench/program.h"
#include "core/compare.h"
#include "core/look.h"
#include "frame/tool_forms.h"

namespace kelvor::bench {
namespace {

/// 60 bytes a line; every so many lines, counted by `step`, one has the word.
std::string page(int lines, int step, std::string_view word) {
    std::string text;
    for (int line = 0; line < lines; ++line) {
        std::string row = "<P>Line " + std::to_string(line);
        if (step > 0 && line % step == 0) row.append(" ").append(word);
        text.append(row).append(60 - row.size() - 2, '.').append("\r\n");
    }
    return text;
}

double secondsOfLibrary(const std::string& left, const std::string& right) {
    git_libgit2_init();
    const auto start = Clock::now();
    git_diff_options options = GIT_DIFF_OPTIONS_INIT;
    options.flags = GIT_DIFF_FORCE_TEXT;
    options.context_lines = 0;
    int lines = 0;
    const auto count = [](const git_diff_delta*, const git_diff_hunk*, const git_diff_line*, void* counter) {
        ++*static_cast<int*>(counter);
        return 0;
    };
    git_diff_buffers(left.data(), left.size(), nullptr, right.data(), right.size(), nullptr, &options, nullptr, nullptr,
                     nullptr, count, &lines);
    benchmark::DoNotOptimize(lines);
    const double seconds = secondsSince(start);
    git_libgit2_shutdown();
    return seconds;
}

void OpenCompare(benchmark::State& state) {
    program();
    const auto lines = static_cast<int>(state.range(0));
    const auto step = static_cast<int>(state.range(1));
    const ShownText left{"here", page(lines, step, "old")};
    const ShownText right{"on the disk", page(lines, step, "new")};
    Comparison times(state);
    for (auto iteration : state) {
        const double ours = secondsOf([&] {
            toolForm<Compare>().take(left, right);
            openToolForm(toolForm<Compare>(), ShowMode::floating);
        });
        times.add(ours, secondsOfLibrary(left.text, right.text));
        state.counters["next_ms"] = 1000 * secondsOf([] { toolForm<Compare>().cmdNext.click(); });
        state.counters["end_ms"] =
            1000 * secondsOf([lines] { toolForm<Compare>().lstLines.setSelectedRow(lines - 1); });
        toolForm<Compare>().unload();
    }
}
BENCHMARK(OpenCompare)
    ->Args({200'000, 100})
    ->Args({200'000, 1})
    ->Args({1'700'000, 850})
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);

/// The lines alone, with no window.
void CompareLines(benchmark::State& state, const std::string& left, const std::string& right) {
    for (auto iteration : state) benchmark::DoNotOptimize(compareLines(left, right));
}
BENCHMARK_CAPTURE(CompareLines, hundred_megabytes, page(1'700'000, 850, "old"), page(1'700'000, 850, "new"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(CompareLines, all_changed, page(200'000, 1, "old"), page(200'000, 1, "new"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(
    CompareLines, shuffled,
    [] {
        std::string text;
        for (int line = 0; line < 200'000; ++line) text += std::to_string(line * 7919LL % 200'003 % 5'000) + "\n";
        return text;
    }(),
    [] {
        std::string text;
        for (int line = 0; line < 200'000; ++line) text += std::to_string(line * 6007LL % 200'003 % 5'000) + "\n";
        return text;
    }())
    ->Unit(benchmark::kMillisecond);

/// Both texts are one line of so many bytes, which the fields below the list show whole.
void OpenLongLine(benchmark::State& state) {
    program();
    ShownText left{"here", std::string(static_cast<std::size_t>(state.range(0)), 'x')};
    ShownText right = left;
    right.text[right.text.size() / 2] = ' ';
    for (auto iteration : state) {
        state.SetIterationTime(secondsOf([&] {
            toolForm<Compare>().take(left, right);
            openToolForm(toolForm<Compare>(), ShowMode::floating);
        }));
        toolForm<Compare>().unload();
    }
}
BENCHMARK(OpenLongLine)->Arg(10'000)->Arg(1 << 20)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);

void OpenLook(benchmark::State& state) {
    program();
    const ShownText text{"kept", page(1'700'000, 0, "")};
    for (auto iteration : state) {
        state.SetIterationTime(secondsOf([&] {
            toolForm<Look>().take(text);
            openToolForm(toolForm<Look>(), ShowMode::floating);
        }));
        toolForm<Look>().unload();
    }
}
BENCHMARK(OpenLook)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor::bench
