#pragma once

#include <string>
#include <vector>

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

ClassDesc2* GetPointHelperDesc();
ClassDesc2* GetBoneObjectDesc();
ClassDesc2* GetCurveControlDesc();
ClassDesc2* GetTextShapeDesc();
ClassDesc2* GetFloatListDesc();
ClassDesc2* GetPositionListDesc();
ClassDesc2* GetRotationListDesc();
ClassDesc2* GetScaleListDesc();
ClassDesc2* GetOrientationConstraintDesc();
ClassDesc2* GetLinkControlDesc();
ClassDesc2* GetPolyObjectDesc();
ClassDesc2* GetEditableMeshDesc();
ClassDesc2* GetMorphModifierDesc();
ClassDesc2* GetDerivedObjectDesc();
ClassDesc2* GetParamBlock2Desc();
ClassDesc2* GetCustAttribContainerDesc();
ClassDesc2* GetTrackViewNodeDesc();

// The host's own classes, one table: what RegisterHostClasses registers.
const std::vector<ClassDesc2*>& HostClassDescriptors();
// Registers the host's own classes with the class directory; a second call does nothing.
void RegisterHostClasses();
// Starts the host: its classes, its layer manager and its core interfaces, then the
// start-up broadcast. Only the first start does anything.
void StartHost();
// The same start with the class libraries of the folders loaded before the broadcast
// (see PluginLoader); errors receives one line per library that failed to load.
void StartHostWithPlugins(const std::vector<std::string>& folders,
                          std::vector<std::string>& errors);

}  // namespace host
