#include "host/viewport/PngFile.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <cstring>

#include "host/core/ReplaceFile.h"

namespace host {

bool SavePngFile(const QImage& image, const std::string& path, std::string& error) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (image.isNull() || !image.save(&buffer, "PNG")) {
        error = path + ": the image could not be encoded as PNG";
        return false;
    }
    const ReplaceResult result = ReplaceFileContents(path, bytes.constData(), size_t(bytes.size()));
    if (result.Ok()) return true;
    const char* what = result.step == ReplaceResult::NO_TEMPORARY ? "cannot write beside it: "
                                                                  : "the image was not saved: ";
    error = path + ": " + what + std::strerror(result.error);
    return false;
}

}  // namespace host
