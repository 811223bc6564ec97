#include "study/StudySession.h"
#include "tests/support/ScriptedRandom.h"

#include <benchmark/benchmark.h>

namespace {

/// One pass over a full stack: 300 questions, 300 answers, and the step that finds the end.
void PassOf300Draws(benchmark::State& state) {
  CardStack stack;
  stack.CardCount = MaxCards;
  SeededRandom random(1);
  TimerSettings settings;
  for (auto _ : state) {
    StudySession session;
    Start(session, StudyMode::Stepper, settings);
    while (Step(session, stack, random) != StepPhase::EndOfStack) {
    }
  }
}
BENCHMARK(PassOf300Draws)->Unit(benchmark::kMicrosecond);

}  // namespace
