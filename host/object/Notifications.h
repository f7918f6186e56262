#pragma once

#include <vector>

namespace host {

// Scene-wide broadcast codes. Windows and tools register for the ones they follow.
enum NotifyCode : int {
    NOTIFY_SELECTIONSET_CHANGED = 18,
    NOTIFY_SYSTEM_PRE_RESET = 32,
    NOTIFY_SYSTEM_POST_RESET = 33,
    NOTIFY_SYSTEM_PRE_NEW = 34,
    NOTIFY_SYSTEM_POST_NEW = 35,
    NOTIFY_FILE_PRE_OPEN = 36,
    NOTIFY_FILE_POST_OPEN = 37,
    NOTIFY_UNITS_CHANGE = 56,
    NOTIFY_SYSTEM_STARTUP = 80,
    NOTIFY_COLOR_CHANGE = 85,
};

// What a callback receives: the code and the broadcaster's data for it.
struct NotifyInfo {
    int intcode = 0;
    void* callParam = nullptr;
};

using NOTIFYPROC = void (*)(void* param, NotifyInfo* info);

// The callbacks registered per code. A callback may register or unregister callbacks,
// itself included, while a broadcast runs: one unregistered meanwhile is not called,
// one registered meanwhile waits for the next broadcast.
class NotificationRegistry {
public:
    static NotificationRegistry& Instance();

    // False when (proc, param, code) is registered already.
    bool Register(NOTIFYPROC proc, void* param, int code);
    // False when it was not registered.
    bool Unregister(NOTIFYPROC proc, void* param, int code);
    // Removes (proc, param) from every code.
    void UnregisterAll(NOTIFYPROC proc, void* param);
    void Broadcast(int code, void* callParam);

private:
    struct Entry {
        NOTIFYPROC proc;
        void* param;
        int code;
        bool operator==(const Entry&) const = default;
    };
    bool Registered(const Entry& e) const;

    std::vector<Entry> entries_;
};

bool RegisterNotification(NOTIFYPROC proc, void* param, int code);
bool UnRegisterNotification(NOTIFYPROC proc, void* param, int code);
void BroadcastNotification(int code, void* callParam = nullptr);

}  // namespace host
