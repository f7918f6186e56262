#pragma once

namespace host {

// The scene-wide animate switch: while it is on, keyframed controllers make a key at
// the time of each SetValue. Suspend and Resume nest and turn it off meanwhile.
bool Animating();
void AnimateOn();
void AnimateOff();
void SuspendAnimate();
void ResumeAnimate();

}  // namespace host
