#include "host/object/CreateMouseCallBack.h"

#include "host/object/Hold.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"
#include "host/object/Object.h"
#include "host/object/ViewExp.h"

namespace host {

INode* CreateNodeByClicks(Interface& ip, Object* obj, ViewExp& vpt,
                          const std::vector<IPoint2>& clicks) {
    CreateMouseCallBack* cb = obj ? obj->GetCreateMouseCallBack() : nullptr;
    if (!cb || !vpt.IsAlive()) return nullptr;
    theHold.Begin();
    INode* node = ip.CreateObjectNode(obj);
    Matrix3 mat;
    int result = CREATE_CONTINUE;
    for (size_t i = 0; i < clicks.size() && result == CREATE_CONTINUE; ++i) {
        result = cb->proc(&vpt, MOUSE_POINT, int(i), 0, clicks[i], mat);
        if (result != CREATE_ABORT) node->SetNodeTM(0, mat);
    }
    if (result == CREATE_CONTINUE) result = cb->proc(&vpt, MOUSE_ABORT, 0, 0, IPoint2{}, mat);
    if (result == CREATE_STOP) {
        theHold.Accept(WStr(L"Create"));
        return node;
    }
    theHold.Cancel();
    return nullptr;
}

}  // namespace host
