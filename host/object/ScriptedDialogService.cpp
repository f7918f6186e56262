#include "host/object/ScriptedDialogService.h"

#include <algorithm>

namespace host {

void ScriptedDialogService::AnswerFile(WStr fileName, int filterIndex,
                                       std::vector<std::pair<WStr, int>> options) {
    answers_.push_back(FileAnswer{std::move(fileName), filterIndex, std::move(options)});
}

void ScriptedDialogService::AnswerCancel() {
    answers_.push_back(FileAnswer{std::nullopt, 0, {}});
}

void ScriptedDialogService::AnswerButton(int button) {
    answers_.push_back(ButtonAnswer{button});
}

int ScriptedDialogService::MessageBox(const WStr& text, const WStr& title, unsigned flags) {
    requests_.push_back({RequestKind::MESSAGE_BOX, title, text, {}, {}, 0, flags});
    const std::optional<ButtonAnswer> answer = Take<ButtonAnswer>(title);
    if (!answer) return DefaultAnswer(flags);
    const std::vector<int> buttons = Buttons(flags);
    if (std::find(buttons.begin(), buttons.end(), answer->button) == buttons.end()) {
        Miss(title, L"the box has no such button");
        return DefaultAnswer(flags);
    }
    return answer->button;
}

void ScriptedDialogService::MessageBeep(unsigned type) {
    requests_.push_back({RequestKind::BEEP, {}, {}, {}, {}, 0, type});
}

std::optional<WStr> ScriptedDialogService::AskFileName(FileDialogRequest& request) {
    const RequestKind kind =
        request.kind == FileDialogKind::OPEN ? RequestKind::OPEN_FILE : RequestKind::SAVE_FILE;
    requests_.push_back(
        {kind, request.title, {}, request.filters, request.defaultExt, request.filterIndex, 0});
    const std::optional<FileAnswer> answer = Take<FileAnswer>(request.title);
    if (!answer || !answer->fileName) return std::nullopt;
    if (!ApplyOptions(*answer, request)) return std::nullopt;
    return answer->fileName;
}

bool ScriptedDialogService::ApplyOptions(const FileAnswer& answer, FileDialogRequest& request) {
    const int filterIndex = answer.filterIndex != 0 ? answer.filterIndex : request.filterIndex;
    if (filterIndex < 1 || filterIndex > std::max(1, int(request.filters.size()))) {
        Miss(request.title, L"the dialog has no such filter");
        return false;
    }
    // All values or none: they go into a copy that replaces the options once all fit.
    DialogOptions options = request.options ? *request.options : DialogOptions();
    for (const auto& [label, value] : answer.options) {
        if (!options.SetValue(options.Find(label), value)) {
            Miss(request.title, L"the dialog has no such option or value");
            return false;
        }
    }
    request.filterIndex = filterIndex;
    if (request.options) *request.options = std::move(options);
    return true;
}

template <class T>
std::optional<T> ScriptedDialogService::Take(const WStr& title) {
    if (answers_.empty()) {
        Miss(title, L"no answer left");
        return std::nullopt;
    }
    if (!std::holds_alternative<T>(answers_.front())) {
        Miss(title, L"the next answer is for another kind of dialog");
        return std::nullopt;
    }
    T answer = std::get<T>(std::move(answers_.front()));
    answers_.pop_front();
    return answer;
}

void ScriptedDialogService::Miss(const WStr& title, const wchar_t* why) {
    misses_.push_back(title + L": " + why);
}

}  // namespace host
