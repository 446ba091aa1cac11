// Keeps a core and the caches busy until it is ended, or its parent has ended: changes every cache
// line of a memory that is several times larger than a cache, again and again.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <unistd.h>
#include <vector>

int main() {
    constexpr std::size_t kWords = std::size_t{32} << 20; // 256 MiB
    constexpr std::size_t kLine = 8;
    std::vector<std::uint64_t> memory(kWords);
    const pid_t parent = getppid();
    while (getppid() == parent) {
        for (std::size_t word = 0; word < kWords; word += kLine)
            ++memory[word];
        benchmark::DoNotOptimize(memory.data());
        benchmark::ClobberMemory();
    }
}
