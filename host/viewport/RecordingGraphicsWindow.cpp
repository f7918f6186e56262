#include "host/viewport/RecordingGraphicsWindow.h"

namespace host {

void RecordingGraphicsWindow::Reset() {
    lines_.clear();
    markers_.clear();
    texts_.clear();
    triangles_.clear();
    clears_ = 0;
}

}  // namespace host
