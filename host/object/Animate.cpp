#include "host/object/Animate.h"

namespace host {

namespace {
bool animateOn = false;
int animateSuspended = 0;
}  // namespace

bool Animating() {
    return animateOn && animateSuspended == 0;
}
void AnimateOn() {
    animateOn = true;
}
void AnimateOff() {
    animateOn = false;
}
void SuspendAnimate() {
    ++animateSuspended;
}
void ResumeAnimate() {
    if (animateSuspended > 0) --animateSuspended;
}

}  // namespace host
