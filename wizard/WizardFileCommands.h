#pragma once
// The file menu commands as the main control runs them: each hands the module's dialog service
// to the toolkit-free command of the files library. A save dialog that failed becomes the
// read-only case there, except for the report, which ends as on a cancel.

#include "WizardServices.h"

namespace qdf::wizard {

// The one instance the module installs as WizardServices().files.
IFileCommands& StandardFileCommands();

}  // namespace qdf::wizard
