# Google Benchmark from Debian's libbenchmark-dev package.
find_package(benchmark REQUIRED)
