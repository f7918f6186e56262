#include "ui/host/QtClipboard.h"

#include <QByteArray>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace host {

namespace {

QClipboard* SystemClipboard() {
    return QtClipboard::Available() ? QGuiApplication::clipboard() : nullptr;
}

}  // namespace

bool QtClipboard::Available() {
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

QString QtClipboard::MimeType(ClipboardFormat format) {
    return QString::fromLatin1(kMimeTypePrefix) + QString::number(format);
}

bool QtClipboard::Publish(Content content) {
    QClipboard* clipboard = SystemClipboard();
    if (!clipboard) return false;
    auto* data = new QMimeData;
    for (const auto& [format, block] : content)
        data->setData(MimeType(format),
                      QByteArray(reinterpret_cast<const char*>(block.data()), int(block.size())));
    clipboard->setMimeData(data);  // the clipboard owns it from here
    return true;
}

std::optional<Clipboard::Block> QtClipboard::Read(ClipboardFormat format) const {
    const QClipboard* clipboard = SystemClipboard();
    const QMimeData* data = clipboard ? clipboard->mimeData() : nullptr;
    if (!data || !data->hasFormat(MimeType(format))) return std::nullopt;
    const QByteArray bytes = data->data(MimeType(format));
    return Block(bytes.begin(), bytes.end());
}

}  // namespace host
