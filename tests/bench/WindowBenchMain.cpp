// The program around benchmarks that show windows.

#include <QApplication>

#include <benchmark/benchmark.h>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
