#pragma once

#include <vector>

#include "host/core/WStr.h"

namespace host {

// The prompt line and the progress bar. Without a window they are kept as state and
// as a log of every prompt shown, which tests and the command line read.
class StatusLine {
public:
    void PushPrompt(const WStr& text);
    void PopPrompt();
    // Replaces the prompt on top (pushes one when there is none).
    void ReplacePrompt(const WStr& text);
    // Shown until the next prompt change; it does not stack.
    void DisplayTempPrompt(const WStr& text);
    // The prompt on show: the temporary one, else the top of the stack, else empty.
    WStr Prompt() const;
    const std::vector<WStr>& PromptLog() const { return log_; }

    // False when a progress bar is already running.
    bool ProgressStart(const WStr& title);
    // percent is kept within 0 to 100.
    void ProgressUpdate(int percent);
    void ProgressEnd();
    bool ProgressRunning() const { return progressRunning_; }
    const WStr& ProgressTitle() const { return progressTitle_; }
    int ProgressPercent() const { return progressPercent_; }

private:
    void Show(const WStr& text) { log_.push_back(text); }

    std::vector<WStr> prompts_;
    WStr temp_;
    std::vector<WStr> log_;
    bool progressRunning_ = false;
    WStr progressTitle_;
    int progressPercent_ = 0;
};

}  // namespace host
