#pragma once

#include <string>

namespace host {

class Interface;

// Scene files on disk. Saving writes a temporary file beside the target and renames it
// over the old one only when every byte is written, so a failed save keeps the old file.
// Loading reads the whole file and replaces the scene only if all of it is sound. Both
// answer false with a message that names the file and what is wrong.
bool SaveSceneFile(const std::string& path, Interface& ip, std::string& error);
bool LoadSceneFile(const std::string& path, Interface& ip, std::string& error);

}  // namespace host
