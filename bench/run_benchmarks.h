#pragma once

#include <QByteArray>
#include <benchmark/benchmark.h>

/// The main() of a program of benchmarks, off the screen unless the environment says otherwise.
/// @param end lets go of what the benchmarks keep that must not outlive the application
template <typename Application, typename End = void (*)()>
int runBenchmarks(
    int argc, char **argv, End end = [] {})
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const Application application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    end();
    return 0;
}
