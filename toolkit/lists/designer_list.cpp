/*
 * Looks up chip designers and their models.
 */
#include <rosetag/toolkit.hpp>

#include <algorithm>

namespace rosetag {

const ChipDesigner* designerOf(const DesignerList& list, unsigned mdid) {
    const auto designer = std::lower_bound(
        list.designers.begin(), list.designers.end(), mdid & TID_DESIGNER_MASK,
        [](const ChipDesigner& one, unsigned wanted) { return one.mdid < wanted; });
    const bool isThere =
        designer != list.designers.end() && designer->mdid == (mdid & TID_DESIGNER_MASK);
    return isThere ? &*designer : nullptr;
}

const ChipModel* chipOf(const ChipDesigner& designer, unsigned tmn) {
    const auto chip =
        std::lower_bound(designer.chips.begin(), designer.chips.end(), tmn,
                         [](const ChipModel& one, unsigned wanted) { return one.tmn < wanted; });
    return chip != designer.chips.end() && chip->tmn == tmn ? &*chip : nullptr;
}

} // namespace rosetag
