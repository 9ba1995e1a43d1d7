#pragma once

/// @file
/// The whole public interface of the library, in one include.

#include "kelp/input/bdf/calculation.hpp"
#include "kelp/input/bdf/completion.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/difference.hpp"
#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/editor.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/meaning.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/outline.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "kelp/input/bdf/record.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "kelp/input/bdf/schema_lint.hpp"
#include "kelp/input/bdf/severity.hpp"
#include "kelp/input/bdf/source.hpp"
#include "kelp/input/bdf/validation.hpp"
#include "kelp/input/bdf/value_kind.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "kelp/input/bdf/version.hpp"
