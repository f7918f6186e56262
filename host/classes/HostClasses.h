#pragma once

namespace host {

class ClassDesc2;
ClassDesc2* GetBezierFloatDesc();
ClassDesc2* GetBezierPositionDesc();
ClassDesc2* GetBezierScaleDesc();
ClassDesc2* GetPositionXYZDesc();
ClassDesc2* GetEulerXYZDesc();
ClassDesc2* GetScaleXYZDesc();
ClassDesc2* GetPRSDesc();
ClassDesc2* GetTcbFloatDesc();
ClassDesc2* GetTcbPositionDesc();
ClassDesc2* GetTcbRotationDesc();
ClassDesc2* GetTcbScaleDesc();

// Registers the host's own classes with the class directory; a second call does nothing.
void RegisterHostClasses();

}  // namespace host
