#pragma once

#include <deque>
#include <utility>
#include <variant>
#include <vector>

#include "host/object/DialogService.h"

namespace host {

// Dialogs answered from a queue of preset answers, for tests: each request takes the
// next answer, and every request is recorded so that a test can check what was asked.
// A request whose next answer is of another kind, or that the answer does not fit (a
// button the box does not show, an option the dialog does not have), takes the default
// answer instead and is noted as a miss, as is a request with no answers left.
class ScriptedDialogService : public DialogService {
public:
    enum class RequestKind { OPEN_FILE, SAVE_FILE, MESSAGE_BOX, BEEP };

    // One request as it was made.
    struct Request {
        RequestKind kind;
        WStr title;
        WStr text;                        // of a message box
        std::vector<FileFilter> filters;  // of a file dialog
        WStr defaultExt;
        int filterIndex = 0;  // the one the dialog opened with
        unsigned flags = 0;   // of a message box; the sound of a beep
    };

    // The next file dialog chooses fileName, and optionally another filter (0 keeps the
    // one it opened with) and option values by label.
    void AnswerFile(WStr fileName, int filterIndex = 0,
                    std::vector<std::pair<WStr, int>> options = {});
    // The next file dialog is cancelled.
    void AnswerCancel();
    // The next message box answers button (an ID value).
    void AnswerButton(int button);

    int MessageBox(const WStr& text, const WStr& title, unsigned flags = MB_OK) override;
    void MessageBeep(unsigned type = MB_SIMPLEBEEP) override;

    const std::vector<Request>& Requests() const { return requests_; }
    size_t PendingAnswers() const { return answers_.size(); }
    // One line per request that did not get the answer meant for it.
    const std::vector<WStr>& Misses() const { return misses_; }

protected:
    std::optional<WStr> AskFileName(FileDialogRequest& request) override;

private:
    struct FileAnswer {
        std::optional<WStr> fileName;
        int filterIndex;
        std::vector<std::pair<WStr, int>> options;
    };
    struct ButtonAnswer {
        int button;
    };
    using Answer = std::variant<FileAnswer, ButtonAnswer>;

    // The next answer when it is of type T; otherwise notes a miss for title.
    template <class T>
    std::optional<T> Take(const WStr& title);
    bool ApplyOptions(const FileAnswer& answer, FileDialogRequest& request);
    void Miss(const WStr& title, const wchar_t* why);

    std::deque<Answer> answers_;
    std::vector<Request> requests_;
    std::vector<WStr> misses_;
};

}  // namespace host
