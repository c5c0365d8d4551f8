#pragma once
// Puts the transmitter parameters of the store into the frame's data for the device.

namespace qdf {
class clsExGlobalVars;
}

namespace qdf::host {

// Writes the list that the bus and Xmtr_SimpleFlowCalcMode choose, row by row through
// WriteParameter, then clears varsChanged. The lists are the device's interface and keep their
// asymmetries. A failing frame call propagates as SDKError: the rows above stay written, the
// rows below are not written and varsChanged keeps its value. The auto lists first express
// Xmtr_TSmallD and Xmtr_TBigD in the device's present temperature unit (store only).
void DownloadToFrame(clsExGlobalVars& store);

}  // namespace qdf::host
