// The whole of `corvane calc --all --out DIR` with all fourteen residual columns on 10^5 and 10^6 pairs: its
// time as a multiple of std::sort of 10^6 doubles, its growth, and its greatest memory.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

/// Typed data: four decimals.
void WriteDataset(const std::string& path, int pairs) {
    std::mt19937 random(5);
    std::normal_distribution<> normal;
    std::ofstream file(path);
    file << "4,0,0\nN=" << pairs << "\nDATA:\n";
    char row[64];
    for (int i = 0; i < pairs; ++i) {
        const double x = 50 + 10 * normal(random);
        std::snprintf(row, sizeof row, "%.4f,,%.4f,,,,\n", x, x + 6 * normal(random));
        file << row;
    }
}

struct Cost {
    double seconds, bytes;
};

/// Processor time and greatest resident memory of one run.
Cost RunCalc(const std::string& folder, const std::string& data) {
    const pid_t child = fork();
    if (child == 0) {
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        const std::string out = folder + "/out";
        execl(CORVANE_PROGRAM, "corvane", "calc", data.c_str(), "--all", "--out", out.c_str(), "--set",
              "RESIDUE_6=true", "--set", "RESIDUE_8=true", "--set", "RESIDUE_14=true", "--seed", "1",
              nullptr);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "corvane calc failed\n");
        std::exit(1);
    }
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
    };
    return {seconds(usage.ru_utime) + seconds(usage.ru_stime), 1024.0 * static_cast<double>(usage.ru_maxrss)};
}

double SortSeconds() {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<> uniform;
    std::vector<double> values(1'000'000);
    std::ranges::generate(values, [&] { return uniform(random); });
    const std::clock_t start = std::clock();
    std::ranges::sort(values);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

} // namespace

int main() {
    char name[] = "/tmp/corvane-bench-XXXXXX";
    const std::string folder = mkdtemp(name);
    double sort = SortSeconds();
    for (int i = 0; i < 2; ++i)
        sort = std::min(sort, SortSeconds());
    double before = 0;
    for (const int pairs : {100'000, 1'000'000}) {
        const std::string data = folder + "/data.KOV";
        WriteDataset(data, pairs);
        Cost cost = RunCalc(folder, data);
        cost.seconds = std::min(cost.seconds, RunCalc(folder, data).seconds);
        std::printf(
            "calc --all, %7d pairs: %6.2f s, %5.1f times the sort of 10^6 (%.0f ms), %4.0f bytes a pair",
            pairs, cost.seconds, cost.seconds / sort, 1e3 * sort, cost.bytes / pairs);
        std::printf(before > 0 ? ", growth %.1f\n" : "\n", cost.seconds / before);
        before = cost.seconds;
    }
    std::filesystem::remove_all(folder);
}
