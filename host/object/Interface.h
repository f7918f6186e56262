#pragma once

#include <vector>

#include "host/core/Tab.h"

#include "host/core/Interval.h"
#include "host/core/WStr.h"
#include "host/object/INode.h"
#include "host/object/IPoint2.h"
#include "host/object/InProcessClipboard.h"
#include "host/object/QuietDialogService.h"
#include "host/object/Scene.h"
#include "host/object/StatusLine.h"
#include "host/object/TimeChangeCallback.h"

namespace host {

// Reference coordinate systems of the transform tools.
enum RefCoordSys : int {
    COORDS_VIEW = 0,
    COORDS_SCREEN = 1,
    COORDS_WORLD = 2,
    COORDS_PARENT = 3,
    COORDS_LOCAL = 4,
    COORDS_GRID = 5,
    COORDS_GIMBAL = 6,
};

// The command panel's tabs.
enum CommandPanelTask : int {
    TASK_MODE_CREATE = 1,
    TASK_MODE_MODIFY = 2,
    TASK_MODE_HIERARCHY = 3,
    TASK_MODE_MOTION = 4,
    TASK_MODE_DISPLAY = 5,
    TASK_MODE_UTILITY = 6,
};

// How CloneNodes makes the clones' objects: copies, the same objects (instances), or
// new derived objects over the originals' objects (references), so that modifiers
// added to a reference stay its own.
enum CloneType : int { NODE_COPY = 0, NODE_INSTANCE = 1, NODE_REFERENCE = 2, NODE_NONE = 3 };

class ILayerManager;
class Object;
class PickModeCallback;
class PickNodeCallback;
class ViewExp;

// The host's services to plug-ins: the scene and its selection, scene time and its
// range, the frame rate, tool modes, redraw switches, the prompt line and the script
// listener. One object, got through GetCOREInterface().
class Interface {
public:
    static constexpr float kDefaultGamma = 2.2f;

    Interface() = default;
    Interface(const Interface&) = delete;
    Interface& operator=(const Interface&) = delete;

    // The scene. Node creation, deletion and selection changes are undoable.
    INode* GetRootNode() { return scene_.Root(); }
    INode* GetINodeByName(const wchar_t* name) { return scene_.FindByName(name); }
    INode* GetINodeByHandle(uint32_t handle) { return scene_.FindByHandle(handle); }
    // A new node under the root with the default matrix controller (a PRS) carrying
    // obj, named name or, without one, after the object's class and made unique.
    INode* CreateObjectNode(Object* obj, const wchar_t* name = nullptr);
    void DeleteNode(INode* node, bool redraw = true, bool overrideSlaves = false);
    // Returns how many nodes went.
    int DeleteNodes(INodeTab& nodes, bool keepChildTM = true, bool redraw = true,
                    bool overrideSlaves = false);
    // Clones nodes (with all their descendants when expandHierarchies) through one
    // clone directory, as one undo step named "Clone". References among the cloned
    // nodes' controllers and objects go to the clones; references to other nodes stay.
    // Each clone is named after its original with a number that makes it unique, keeps
    // its properties, goes under the clone of its parent (or, when the parent is not
    // cloned, under the same parent), and the clones whose parents were not cloned move
    // by offset (world units). Transform and visibility controllers are always copies;
    // objects follow cloneType; materials are shared. The selection does not change.
    // resultSource and resultTarget receive the originals and their clones, in the same
    // order (parents before children). False, with the scene as it was, for an empty
    // list, a null node, the root or a node out of the scene, NODE_NONE, and for an
    // object or controller whose class cannot be cloned.
    //
    // The clone directory is the persistence layer's: this is defined there (link
    // zv_host_io to call it).
    bool CloneNodes(INodeTab& nodes, const Point3& offset, bool expandHierarchies = true,
                    CloneType cloneType = NODE_COPY, INodeTab* resultSource = nullptr,
                    INodeTab* resultTarget = nullptr);
    // base with a number that makes it a name no node has.
    void MakeNameUnique(WStr& name) { name = scene_.UniqueName(name); }
    // The selection, in the order it was made.
    int GetSelNodeCount() const { return int(scene_.Selection().size()); }
    INode* GetSelNode(int i) const;
    void SelectNode(INode* node, bool clearSel = true);
    // Adds the nodes to the selection, or with sel false takes them out of it.
    void SelectNodeTab(INodeTab& nodes, bool sel, bool redraw = true);
    void ClearNodeSelection(bool redraw = true);
    // The root's custom tracks.
    TrackViewNode* GetTrackViewRootNode() { return scene_.TrackViewRoot(); }
    // Null until the host's classes install one.
    ILayerManager* GetLayerManager() { return layers_; }
    void SetLayerManager(ILayerManager* layers) { layers_ = layers; }
    Scene& GetScene() { return scene_; }

    TimeValue GetTime() const { return time_; }
    // Moves the current time and tells the time-change callbacks, when it changes.
    void SetTime(TimeValue t, bool redraw = true);
    Interval GetAnimRange() const { return range_; }
    // Refused (false) for a range that ends before it starts.
    bool SetAnimRange(Interval range);
    int GetFrameRate() const { return frameRate_; }
    // A rate must give a whole number of ticks a frame; false otherwise.
    bool SetFrameRate(int framesPerSecond);
    int GetTicksPerFrame() const { return TIME_TICKSPERSEC / frameRate_; }
    void RegisterTimeChangeCallback(TimeChangeCallback* tc);
    void UnRegisterTimeChangeCallback(TimeChangeCallback* tc);

    int GetRefCoordSys() const { return refCoordSys_; }
    // The axes the transform tools use for node at t in the reference coordinate
    // system: the node's own for local and gimbal, its parent's for parent, the world's
    // otherwise (views and the grid are the world without a viewport). Scale is left out.
    Matrix3 GetTransformAxis(INode* node, TimeValue t);
    // Ignores values outside the named systems.
    void SetRefCoordSys(int coords);
    int GetCommandPanelTaskMode() const { return taskMode_; }
    void SetCommandPanelTaskMode(int mode);
    bool GetQuietMode() const { return quiet_; }
    void SetQuietMode(bool quiet) { quiet_ = quiet; }

    // The clipboard: the one the application installed (the system's, when there is a
    // display), else the host's own in-process one.
    Clipboard& GetClipboard() { return clipboard_ ? *clipboard_ : ownClipboard_; }
    // Installs a clipboard that the caller keeps alive; null goes back to the host's own.
    void SetClipboard(Clipboard* clipboard) { clipboard_ = clipboard; }
    // The dialogs: the quiet ones in quiet mode or when the application installed none,
    // else the installed ones.
    DialogService& GetDialogService() { return quiet_ || !dialogs_ ? quietDialogs_ : *dialogs_; }
    // Installs dialogs that the caller keeps alive; null goes back to the quiet ones.
    void SetDialogService(DialogService* dialogs) { dialogs_ = dialogs; }

    // Display gamma. While it is on, a colour chosen for the screen (a wire colour) is
    // stored raised to the power gamma, so that the display's correction by 1/gamma
    // shows it as chosen. A new scene has it off at 2.2.
    bool IsGammaOn() const { return gammaOn_; }
    float GetGamma() const { return gamma_; }
    // Refused (false), changing nothing, for a gamma outside 0.1 to 10.
    bool SetGamma(bool on, float gamma);
    // Each component clamped to 0..1 and raised to the power gamma while gamma is on;
    // the colour as it is while it is off.
    Point3 GammaCorrect(const Point3& color) const;

    // Redraws nest: the views redraw only when every disable has been matched.
    void DisableSceneRedraw() { ++redrawDisabled_; }
    void EnableSceneRedraw();
    bool IsSceneRedrawDisabled() const { return redrawDisabled_ > 0; }
    void RedrawViews(TimeValue t);
    void ForceCompleteRedraw() { RedrawViews(time_); }
    // Redraws done so far; with no window this is all a redraw is.
    int RedrawCount() const { return redraws_; }
    // The viewport used when a call names none: the one the application made active, or
    // a view that is not alive. The application clears it before the view goes.
    ViewExp& GetActiveViewExp();
    void SetActiveViewExp(ViewExp* view) { activeView_ = view; }

    // Pick modes. SetPickMode ends the mode in force (ExitMode) and enters mode; null
    // just ends it. A mode set again while in force stays, without entering twice.
    void SetPickMode(PickModeCallback* mode);
    void ClearPickMode() { SetPickMode(nullptr); }
    PickModeCallback* GetCurPickMode() const { return pickMode_; }
    // The node drawn nearest the window point m of vpt among the visible, unfrozen
    // nodes that filter (when given) accepts; null over empty space or for a view that
    // is not alive. The view's hit log holds every accepted node hit.
    INode* PickNode(ViewExp& vpt, IPoint2 m, PickNodeCallback* filter = nullptr);
    // A click at m in pick mode, as the viewport delivers it: the mode's hit test, then
    // its Pick, which ends the mode when it answers true. False when no mode is in force
    // or nothing was hit.
    bool ClickInPickMode(ViewExp& vpt, IPoint2 m);

    StatusLine& Status() { return status_; }
    // The script listener's output.
    void Print(const WStr& text);
    const WStr& ListenerText() const { return listener_; }
    void ClearListener() { listener_ = WStr(); }

    // An empty scene with a new scene's settings and no undo, with the reset
    // broadcasts around it.
    void Reset();

private:
    void Redraw(bool redraw) {
        if (redraw) RedrawViews(time_);
    }

    Scene scene_;
    ILayerManager* layers_ = nullptr;
    TimeValue time_ = 0;
    int frameRate_ = 30;
    Interval range_{0, 100 * (TIME_TICKSPERSEC / 30)};
    std::vector<TimeChangeCallback*> timeCallbacks_;
    int refCoordSys_ = COORDS_VIEW;
    int taskMode_ = TASK_MODE_CREATE;
    bool quiet_ = false;
    InProcessClipboard ownClipboard_;
    Clipboard* clipboard_ = nullptr;
    QuietDialogService quietDialogs_;
    DialogService* dialogs_ = nullptr;
    int redrawDisabled_ = 0;
    int redraws_ = 0;
    bool gammaOn_ = false;
    float gamma_ = kDefaultGamma;
    ViewExp* activeView_ = nullptr;
    PickModeCallback* pickMode_ = nullptr;
    StatusLine status_;
    WStr listener_;
};

Interface* GetCOREInterface();

}  // namespace host
