#pragma once

#include <cstdlib>

#include <gmock/gmock.h>

#include "tests/cli/Folder.h"

/// Tests with settings of their own, in an empty configuration folder.
class CSettingsFolder : public testing::Test {
protected:
    CSettingsFolder() { setenv("XDG_CONFIG_HOME", m_folder.Path("config").c_str(), 1); }
    ~CSettingsFolder() override { unsetenv("XDG_CONFIG_HOME"); }

    const CFolder m_folder;
};

/// How often a test of chance is repeated: a variable of the environment says it, where a run is to be long.
inline unsigned RoundsFrom(const char* pszVariable, unsigned nDefault) {
    const char* const pszRounds = std::getenv(pszVariable);
    return pszRounds ? static_cast<unsigned>(std::strtoul(pszRounds, nullptr, 10)) : nDefault;
}
