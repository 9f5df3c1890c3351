#include "games/tierfall/TierfallValues.h"

#include "games/tierfall/frmTierfall.h"

namespace corvanna {

TierfallValues& frmTierfall::values() {
    return tierfallValues(prog_);
}

const TierfallValues& frmTierfall::values() const {
    return tierfallValues(prog_);
}

}  // namespace corvanna
