#include "controllers/GimbalProxy.h"

#include "controllers/DummyFloat.h"
#include "controllers/DummyRotation.h"
#include "frame/FrameIds.h"
#include "frame/StringTable.h"
#include "host/classes/IEulerControl.h"
#include "host/classes/ListControl.h"
#include "host/object/Hold.h"
#include "host/object/HostClassIds.h"

namespace zorvanta {

using namespace host;

namespace {

bool enabled = true;

// The proxy's parts. They live as long as the process: the pins keep the list (and
// through it the rest) from going when nothing in a scene refers to it.
struct Proxy {
    ListControl* list = nullptr;
    DummyRotation* parent = nullptr;
    Control* euler = nullptr;
    DummyFloat* angles[3] = {nullptr, nullptr, nullptr};
    TargetPin* pin = nullptr;  // never released: the proxy is the process's
};

Proxy Build() {
    Proxy p;
    auto* list =
        dynamic_cast<ListControl*>(CreateInstance(CTRL_ROTATION_CLASS_ID, ROTATION_LIST_CLASS_ID));
    auto* euler =
        dynamic_cast<Control*>(CreateInstance(CTRL_ROTATION_CLASS_ID, EULER_XYZ_CLASS_ID));
    if (!list || !euler) {
        if (list) list->DeleteThis();
        if (euler) euler->DeleteThis();
        return p;
    }
    p.list = list;
    p.euler = euler;
    p.parent = new DummyRotation(false);
    for (int i = 0; i < 3; ++i) {
        p.angles[i] = new DummyFloat(false);
        euler->AssignController(p.angles[i], i);
    }
    list->Append(p.parent, WStr(GetString(IDS_PARENT_ROT)));
    list->Append(euler, WStr(GetString(IDS_EULER_ROT)));
    list->SetActive(1);
    p.pin = new TargetPin(list);
    return p;
}

Proxy& TheProxy() {
    static Proxy proxy = [] {
        theHold.Suspend();
        Proxy p = Build();
        theHold.Resume();
        return p;
    }();
    return proxy;
}

// A track that forwards to another stands for that other track.
Control* Unwrapped(Animatable* a) {
    auto* c = dynamic_cast<Control*>(a);
    if (c && c->ClassID() == DUMMY_FLOAT_CLASS_ID && c->SuperClassID() == CTRL_FLOAT_CLASS_ID)
        return static_cast<DummyFloat*>(c)->GetInner();
    return c;
}

struct EulerTriple {
    int order = 0;
    Control* tracks[3] = {nullptr, nullptr, nullptr};
};

// Walks into c down to its Euler triple, accumulating in acc what comes before it:
// a rotation list's entries before its active one. Layered rotation controllers come
// with the animation layers; until then a track that is neither ends the walk.
bool FindEulerTriple(Control* c, Matrix3& acc, TimeValue t, EulerTriple& found) {
    while (c) {
        if (auto* euler = static_cast<IEulerControl*>(c->GetInterface(I_EULERCTRL))) {
            found.order = euler->GetOrder();
            for (int i = 0; i < 3; ++i)
                found.tracks[i] = i < c->NumSubs() ? Unwrapped(c->SubAnim(i)) : nullptr;
            return found.tracks[0] && found.tracks[1] && found.tracks[2];
        }
        auto* list = dynamic_cast<ListControl*>(c);
        if (!list || c->SuperClassID() != CTRL_ROTATION_CLASS_ID) return false;
        const int active = list->GetActive();
        Interval ignored = FOREVER;
        for (int i = 0; i < active; ++i)
            if (Control* entry = list->GetSubCtrl(i))
                entry->GetValue(t, &acc, ignored, CTRL_RELATIVE);
        c = list->GetSubCtrl(active);
    }
    return false;
}

}  // namespace

Control* GimbalProxy::For(Control* real, const Matrix3& start, TimeValue t) {
    Matrix3 acc = start;
    EulerTriple found;
    if (!FindEulerTriple(real, acc, t, found)) return real;
    Proxy& proxy = TheProxy();
    if (!proxy.list) return real;
    // Aiming the proxy is no edit of the scene: nothing of it goes to the undo.
    theHold.Suspend();
    Quat parent(acc);
    proxy.parent->SetValue(t, &parent, 1, CTRL_ABSOLUTE);
    proxy.parent->SetRelative(true);
    for (int i = 0; i < 3; ++i) {
        proxy.angles[i]->SetInner(found.tracks[i]);
        proxy.angles[i]->SetOffset(0.0f);
    }
    static_cast<IEulerControl*>(proxy.euler->GetInterface(I_EULERCTRL))->SetOrder(found.order);
    theHold.Resume();
    return proxy.list;
}

bool GimbalProxy::Enabled() {
    return enabled;
}

GimbalProxy::Suspend::Suspend() : was_(enabled) {
    enabled = false;
}

GimbalProxy::Suspend::~Suspend() {
    enabled = was_;
}

}  // namespace zorvanta
