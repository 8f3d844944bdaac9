#include <QCoreApplication>

#include <benchmark/benchmark.h>

int main(int argc, char** argv) {
    // The model's timer needs an application object, though no event loop.
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
