#include "host/object/Control.h"

namespace host {

Control* NewDefaultFloatController() {
    // The host's bezier float, found through the class directory like any class.
    return static_cast<Control*>(CreateInstance(CTRL_FLOAT_CLASS_ID, Class_ID(0x2007, 0)));
}

}  // namespace host
