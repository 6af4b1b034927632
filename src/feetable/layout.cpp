#include <algorithm>

#include "feetable/fee_grid.h"

namespace kwfy {

namespace {

constexpr int kIndexGridGap = 30;  // twips between the fee grid and the index grid

}  // namespace

// A control smaller than its toolbar and index grid together would give the
// fee grid a negative height; sizes are clamped at 0 instead, so the fee grid
// vanishes and the index grid keeps its place just below the toolbar.
ControlLayout ComputeLayout(int W, int H, bool showBar, int barHeight, bool indexVisible,
                            int indexHeight) {
    ControlLayout out;
    const int width = std::max(W, 0);
    const int bar = showBar ? std::max(barHeight, 0) : 0;
    if (showBar) {
        out.toolbarPlaced = true;
        out.toolbar = Rect{0, 0, width, bar};
    }
    if (!indexVisible) {
        out.feeGrid = Rect{0, bar, width, std::max(H - bar, 0)};
        return out;
    }
    const int index = std::max(indexHeight, 0);
    out.feeGrid = Rect{0, bar, width, std::max(H - bar - index - kIndexGridGap, 0)};
    out.indexPlaced = true;
    out.indexGrid = Rect{0, bar + out.feeGrid.height + kIndexGridGap, width, index};
    return out;
}

}  // namespace kwfy
