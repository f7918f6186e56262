#include "host/object/Notifications.h"

#include <algorithm>

namespace host {

NotificationRegistry& NotificationRegistry::Instance() {
    static NotificationRegistry registry;
    return registry;
}

bool NotificationRegistry::Registered(const Entry& e) const {
    return std::find(entries_.begin(), entries_.end(), e) != entries_.end();
}

bool NotificationRegistry::Register(NOTIFYPROC proc, void* param, int code) {
    const Entry e{proc, param, code};
    if (!proc || Registered(e)) return false;
    entries_.push_back(e);
    return true;
}

bool NotificationRegistry::Unregister(NOTIFYPROC proc, void* param, int code) {
    const auto it = std::find(entries_.begin(), entries_.end(), Entry{proc, param, code});
    if (it == entries_.end()) return false;
    entries_.erase(it);
    return true;
}

void NotificationRegistry::UnregisterAll(NOTIFYPROC proc, void* param) {
    std::erase_if(entries_, [&](const Entry& e) { return e.proc == proc && e.param == param; });
}

void NotificationRegistry::Broadcast(int code, void* callParam) {
    // A snapshot, so callbacks may change the registry; each entry is checked again
    // before its call so that one removed by an earlier callback is skipped.
    std::vector<Entry> listeners;
    for (const Entry& e : entries_)
        if (e.code == code) listeners.push_back(e);
    NotifyInfo info{code, callParam};
    for (const Entry& e : listeners)
        if (Registered(e)) e.proc(e.param, &info);
}

bool RegisterNotification(NOTIFYPROC proc, void* param, int code) {
    return NotificationRegistry::Instance().Register(proc, param, code);
}

bool UnRegisterNotification(NOTIFYPROC proc, void* param, int code) {
    return NotificationRegistry::Instance().Unregister(proc, param, code);
}

void BroadcastNotification(int code, void* callParam) {
    NotificationRegistry::Instance().Broadcast(code, callParam);
}

}  // namespace host
