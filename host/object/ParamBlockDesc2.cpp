#include "host/object/ParamBlockDesc2.h"

#include <algorithm>

#include "host/object/ClassDesc2.h"

namespace host {

namespace {
bool loadingScene = false;
}  // namespace

bool IsLoading() {
    return loadingScene;
}
void SetLoading(bool loading) {
    loadingScene = loading;
}

ParamBlockDesc2::ParamBlockDesc2(BlockID id, const wchar_t* name, uint32_t flags, int refNo,
                                 ClassDesc2* cd, std::vector<ParamDef> params)
    : id_(id), name_(name), flags_(flags), refNo_(refNo), cd_(cd), params_(std::move(params)) {
    int largest = -1;
    for (const ParamDef& p : params_) largest = std::max<int>(largest, p.id);
    index_.assign(size_t(largest + 1), -1);
    for (size_t i = 0; i < params_.size(); ++i)
        if (params_[i].id >= 0) index_[size_t(params_[i].id)] = int(i);
    if (cd) cd->AddParamBlockDesc(this);
}

}  // namespace host
