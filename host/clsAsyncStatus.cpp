#include "clsAsyncStatus.h"

namespace qdf::host {

bool clsAsyncStatus::IsFinished() const {
    return Status == -1 || Status == 4 || Status == 5 || Status == 6;
}

}  // namespace qdf::host
