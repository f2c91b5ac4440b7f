#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tessara/platform/files/settings/SettingsText.h"

// All settings of the user: a tree of keys, each directly below the root a file of its own.
//
// The key "Maker" lies in tessara.settings in the folder "Maker" of the user's configuration folder, which
// is $XDG_CONFIG_HOME where that is a full path, else ~/.config. Of folders whose names differ in case alone
// the first by bytes serves. Each change is one of CSharedFile, so no change is lost whoever else writes.
//
// Functions throw CFileException as CSharedFile does, and badPath for what is no path or has no name at all.
// Any thread.

namespace tessara {

/// The first name of a path, which tells the file.
std::string_view FirstName(std::string_view strPath);
/// What follows it, which is the key in the file.
std::string_view PathBelowFirst(std::string_view strPath);

/// Lets an action read the file of a path, which is empty where there is none; the action's key is the path's
/// rest.
void ReadSettings(std::string_view strPath,
                  const std::function<void(const CSettingsText& text, std::string_view strKey)>& action);
/// Lets an action change it; the folder is made where there is none and the action has something to write. It
/// may be called twice.
void UpdateSettings(std::string_view strPath,
                    const std::function<void(CSettingsText& text, std::string_view strKey)>& action);

/// The names of the keys below the root, each once, sorted by folder. What cannot be read is left out.
std::vector<std::string> TopKeys();

/// The user's configuration folder; empty where there is no home.
std::string ConfigurationFolder();

} // namespace tessara
