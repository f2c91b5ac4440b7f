#include "tests/fuzz/Fuzz.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>

void Demand(bool bTrue, const char* pszWhat) {
    if (!bTrue) {
        std::fprintf(stderr, "not so: %s\n", pszWhat);
        std::abort();
    }
}

namespace {

const std::string& AnySeed(std::mt19937& random) {
    static const std::vector<std::string> s_seeds = Seeds();
    return s_seeds[random() % s_seeds.size()];
}

} // namespace

#ifdef TESSARA_LIBFUZZER

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* pData, std::size_t nSize, std::size_t nMaxSize);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* pData, std::size_t nSize, std::size_t nMaxSize,
                                               unsigned nSeed);

/// The seeds come in by way of short inputs, so that no files of them need be kept.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* pData, std::size_t nSize, std::size_t nMaxSize,
                                               unsigned nSeed) {
    std::mt19937 random(nSeed);
    constexpr std::size_t SHORT = 8;
    if (nSize < SHORT) {
        const std::string& strSeed = AnySeed(random);
        nSize = std::min(strSeed.size(), nMaxSize);
        std::copy_n(strSeed.begin(), nSize, pData);
    }
    return LLVMFuzzerMutate(pData, nSize, nMaxSize);
}

#else

namespace {

/// Overwrites 1, 2, 4 or 8 bytes with a number that programs stumble over.
void PutNumber(std::string& strBytes, std::mt19937& random) {
    static constexpr std::uint64_t NUMBERS[] = {0,          1,          0x7F,       0x80,
                                                0xFF,       0x7FFF,     0x8000,     0xFFFF,
                                                0x10000000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFFFFFFFFFF};
    const std::size_t nBytes = std::size_t{1} << random() % 4;
    if (strBytes.size() < nBytes) {
        return;
    }
    std::uint64_t nNumber = NUMBERS[random() % std::size(NUMBERS)];
    const std::size_t nAt = random() % (strBytes.size() - nBytes + 1);
    for (std::size_t i = 0; i < nBytes; ++i, nNumber >>= 8) {
        strBytes[nAt + i] = static_cast<char>(nNumber);
    }
}

std::string Mutant(std::mt19937& random) {
    std::string strBytes = AnySeed(random);
    for (std::size_t nChanges = random() % 5; nChanges > 0; --nChanges) {
        const std::size_t nAt = random() % (strBytes.size() + 1);
        switch (random() % 5) {
        case 0:
            strBytes.resize(nAt);
            break;
        case 1:
            strBytes.insert(nAt, AnySeed(random).substr(0, random() % 64));
            break;
        case 2:
            strBytes.erase(nAt, random() % 16);
            break;
        case 3:
            PutNumber(strBytes, random);
            break;
        default:
            if (nAt < strBytes.size()) {
                strBytes[nAt] = static_cast<char>(random());
            }
        }
    }
    return strBytes;
}

} // namespace

int main() {
    const char* const pszRuns = std::getenv("TESSARA_FUZZ_RUNS");
    const long nRuns = pszRuns ? std::atol(pszRuns) : 5000;
    std::mt19937 random(1);
    for (long i = 0; i < nRuns; ++i) {
        const std::string strBytes = Mutant(random);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(strBytes.data()), strBytes.size());
    }
    std::printf("%ld inputs\n", nRuns);
    return nRuns > 0 ? 0 : 1;
}

#endif
