#pragma once

#include <vector>

#include "host/math/Matrix3.h"
#include "host/object/IPoint2.h"

namespace host {

class INode;
class Interface;
class Object;
class ViewExp;

// What the mouse tells an object that is being created in a viewport.
enum MouseCallMsg : int {
    MOUSE_ABORT = 0,     // creation was called off (right click, Escape)
    MOUSE_POINT = 1,     // a click: the point number counts the clicks from 0
    MOUSE_MOVE = 2,      // the mouse moved with the button down
    MOUSE_FREEMOVE = 3,  // the mouse moved with no button down
};

// What the object answers to each message.
enum CreateMouseResult : int {
    CREATE_STOP = 0,      // the object is made: creation ends and is kept
    CREATE_CONTINUE = 1,  // more clicks or moves are wanted
    CREATE_ABORT = 2,     // creation is called off: the new node goes
};

// How an object is placed by the mouse when the create panel makes it. proc receives
// each mouse event at the window point m of vpt, with point the number of the click;
// it sets mat, the new node's transform (to world), and answers a CreateMouseResult.
class CreateMouseCallBack {
public:
    virtual ~CreateMouseCallBack() = default;
    virtual int proc(ViewExp* vpt, int msg, int point, int flags, IPoint2 m, Matrix3& mat) = 0;
};

// Creates a node for obj the way the create panel does with the mouse: the node is
// made, then each click of clicks goes to obj's callback as MOUSE_POINT, and the node
// takes the transform the callback set after each. When the callback answers
// CREATE_STOP the node is kept, as one undo entry named "Create"; when it answers
// CREATE_ABORT, or the clicks run out first (which aborts, as leaving the mode does),
// nothing is kept and the answer is null. An object without a callback, or a view that
// is not alive, makes nothing and stays the caller's.
INode* CreateNodeByClicks(Interface& ip, Object* obj, ViewExp& vpt,
                          const std::vector<IPoint2>& clicks);

}  // namespace host
