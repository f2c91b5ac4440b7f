// Lists an archive of 10,000 variants, and reads the same headers without a library's care: readdir, openat,
// pread of 290 bytes, close.
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include "tessara/document/ArchiveFolder.h"

namespace {

constexpr int VARIANTS = 10000;
constexpr int VARIANTS_OF_A_BASE = 100;
constexpr std::size_t DATA = 4000; ///< bytes

/// A folder of variants, as documents are saved: now this Base, now that.
class CSampleArchive {
public:
    CSampleArchive() : m_strFolder((std::filesystem::temp_directory_path() / "bench-XXXXXX").string()) {
        if (!mkdtemp(m_strFolder.data())) {
            std::abort();
        }
        m_strFolder += '/';
        for (int i = 0; i < VARIANTS; ++i) {
            tessara::CVariantHeader header;
            header.strBaseName = "Base " + std::to_string(i * 37 % (VARIANTS / VARIANTS_OF_A_BASE));
            header.strVariantName = "variant " + std::to_string(i);
            header.nVariantNumber = i * VARIANTS_OF_A_BASE / VARIANTS;
            const auto bytes = header.Format();
            char name[32];
            std::snprintf(name, sizeof name, "bas%05d.bva", i + 1);
            std::ofstream(m_strFolder + name, std::ios::binary)
                << std::string(bytes.begin(), bytes.end()) << std::string(DATA, 'x');
        }
    }
    ~CSampleArchive() { std::filesystem::remove_all(m_strFolder); }
    CSampleArchive(const CSampleArchive&) = delete;
    CSampleArchive& operator=(const CSampleArchive&) = delete;

    const char* Directory() const { return m_strFolder.c_str(); }
    static const CSampleArchive& Get() {
        static const CSampleArchive s_archive;
        return s_archive;
    }

private:
    std::string m_strFolder;
};

void Tessara(benchmark::State& state) {
    const CSampleArchive& archive = CSampleArchive::Get();
    for (auto _ : state) {
        const auto entries = tessara::CArchiveFolder(archive.Directory(), "bva").List();
        if (entries.size() != VARIANTS) {
            state.SkipWithError("not all are listed");
        }
    }
}

void Plain(benchmark::State& state) {
    const CSampleArchive& archive = CSampleArchive::Get();
    for (auto _ : state) {
        int nRead = 0;
        DIR* const pFolder = opendir(archive.Directory());
        while (const dirent* const pEntry = readdir(pFolder)) {
            const int nFile = openat(dirfd(pFolder), pEntry->d_name, O_RDONLY);
            char header[tessara::CVariantHeader::SIZE];
            nRead += pread(nFile, header, sizeof header, 0) == sizeof header;
            close(nFile);
        }
        closedir(pFolder);
        if (nRead != VARIANTS) {
            state.SkipWithError("not all are read");
        }
    }
}

} // namespace

BENCHMARK(Tessara)->Name("ArchiveListing/tessara")->Unit(benchmark::kMillisecond);
BENCHMARK(Plain)->Name("ArchiveListing/readdir, openat, pread, close")->Unit(benchmark::kMillisecond);
