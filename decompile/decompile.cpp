#include "decompile/decompile.h"

#include "decompile/like.h"
#include "decompile/lost.h"
#include "decompile/solver.h"
#include "decompile/writer.h"

namespace paramgen::decompile {

Decompiled Decompile(const image::Image& image, const Options& options) {
    if (options.like) {
        return DecompileLike(image, options);
    }
    const Wish wish = {.all = options.all, .kept = nullptr};
    const Solution solution = Solve(image, wish);
    return {
        .files = NewTree(solution), .lost = Explain(image, solution.lost), .image = solution.image};
}

}  // namespace paramgen::decompile
