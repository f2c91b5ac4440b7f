#pragma once

#include <functional>
#include <string>

/// From now on permissions bite in this process and in what it executes, also where it is root's.
void BecomePlainUser();

/// What an action says in a process of its own, as a plain user.
std::string AsPlainUser(const std::function<std::string()>& action);
