#include "host/object/StatusLine.h"

#include <algorithm>

namespace host {

void StatusLine::PushPrompt(const WStr& text) {
    temp_ = WStr();
    prompts_.push_back(text);
    Show(text);
}

void StatusLine::PopPrompt() {
    temp_ = WStr();
    if (!prompts_.empty()) prompts_.pop_back();
}

void StatusLine::ReplacePrompt(const WStr& text) {
    if (prompts_.empty()) return PushPrompt(text);
    temp_ = WStr();
    prompts_.back() = text;
    Show(text);
}

void StatusLine::DisplayTempPrompt(const WStr& text) {
    temp_ = text;
    Show(text);
}

WStr StatusLine::Prompt() const {
    if (temp_.Length() > 0) return temp_;
    return prompts_.empty() ? WStr() : prompts_.back();
}

bool StatusLine::ProgressStart(const WStr& title) {
    if (progressRunning_) return false;
    progressRunning_ = true;
    progressTitle_ = title;
    progressPercent_ = 0;
    return true;
}

void StatusLine::ProgressUpdate(int percent) {
    if (progressRunning_) progressPercent_ = std::clamp(percent, 0, 100);
}

void StatusLine::ProgressEnd() {
    progressRunning_ = false;
    progressTitle_ = WStr();
    progressPercent_ = 0;
}

}  // namespace host
