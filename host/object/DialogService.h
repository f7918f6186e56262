#pragma once

#include <optional>
#include <vector>

#include "host/core/WStr.h"
#include "host/object/DialogOptions.h"
#include "host/object/ServiceConstants.h"

namespace host {

// One entry of a file dialog's filter list: the text shown ("Pose Files (*.pose)") and
// the patterns it lets through, several split by ';' ("*.jpg;*.jpeg").
struct FileFilter {
    WStr description;
    WStr pattern;

    friend bool operator==(const FileFilter&, const FileFilter&) = default;
};

enum class FileDialogKind { OPEN, SAVE };

// What a file dialog is asked to show, and (filterIndex, options) what the user chose.
struct FileDialogRequest {
    FileDialogKind kind = FileDialogKind::OPEN;
    WStr title;
    std::vector<FileFilter> filters;
    // Without the dot; added to a chosen name that has no extension.
    WStr defaultExt;
    // The file or folder the dialog starts at; empty for the dialog's own choice.
    WStr initialPath;
    // 1-based: in, the filter shown first; out, the one in use when the user pressed OK.
    int filterIndex = 1;
    // Extra fields shown beside the files, or none; on OK they hold the user's values.
    DialogOptions* options = nullptr;
};

// The host's dialogs: file dialogs, message boxes and the beep. The Interface holds the
// one in use: a quiet one that takes the default answers (the command line, quiet mode),
// a scripted one (tests), or the studio's windows.
class DialogService {
public:
    DialogService() = default;
    DialogService(const DialogService&) = delete;
    DialogService& operator=(const DialogService&) = delete;
    virtual ~DialogService() = default;

    // The chosen file, or nothing when the dialog was cancelled. The filter index is
    // brought into the list's range before the dialog opens and after it closes; on OK a
    // name without an extension gets the default one.
    std::optional<WStr> GetFileName(FileDialogRequest& request);
    // Shows text under title with the buttons and icon of flags (MB_ values); returns the
    // button pressed (an ID value), always one of the buttons the flags ask for.
    virtual int MessageBox(const WStr& text, const WStr& title, unsigned flags = MB_OK) = 0;
    // Plays the sound of a message box icon, or the plain beep (MB_SIMPLEBEEP).
    virtual void MessageBeep(unsigned type = MB_SIMPLEBEEP) = 0;

    // The buttons of the flags' set, in the order shown; an unknown set is OK alone.
    static std::vector<int> Buttons(unsigned flags);
    // The button Enter presses: the set's default button (MB_DEFBUTTONn), or its first
    // when the set has no such button.
    static int DefaultAnswer(unsigned flags);
    // "OK", "Cancel", "Yes", ...; empty for a value that is no button.
    static const wchar_t* ButtonName(int id);

protected:
    // Shows the dialog; the request's filter index is within its list.
    virtual std::optional<WStr> AskFileName(FileDialogRequest& request) = 0;
};

}  // namespace host
