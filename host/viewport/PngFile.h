#pragma once

#include <string>

class QImage;

namespace host {

// Writes image to path as PNG through a temporary file and a rename, so a failed save
// never leaves a broken file. Answers false with a message that names the file.
bool SavePngFile(const QImage& image, const std::string& path, std::string& error);

}  // namespace host
