// Benchmarks that change a recording: each run has a fresh copy of the large project.
#pragma once

#include <QString>

#include <benchmark/benchmark.h>

#include <functional>

namespace korvanel::bench {

class BareDatabase;

/// A fresh copy of the large project, on the disk already, so that nothing that runs on it waits for that.
QString FreshCopy(const char* name);

/// Runs an operation of the program on copies that `prepare` has made ready, as the open project. Fails where it is
/// false.
void RunOnCopies(benchmark::State& state, const std::function<void()>& prepare, const std::function<bool()>& operation);
/// The same without the program: in one transaction.
void RunBareOnCopies(benchmark::State& state, const std::function<void(BareDatabase&)>& operation);

/// A run takes seconds, and a third as many of them tell enough.
void OneRunEach(benchmark::internal::Benchmark* changing);

} // namespace korvanel::bench
