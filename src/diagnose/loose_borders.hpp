#pragma once

#include "diagnose/draft.hpp"
#include "diagnose/finders.hpp"

namespace kelp::input::bdf {

/// Tells of borders that are read as what they are meant to be though more stands in them than they
/// should hold, `$ scf` and `End Geometry.`, and of databases that have no end.
void tell_loose_borders(DiagnoseContext& context, const DiagnosticSink& sink);

}  // namespace kelp::input::bdf
