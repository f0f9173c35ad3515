#pragma once

namespace fuzz {

/// Makes the evaluator "note" known, once. Its definition data is one text, "note".
void makeEvaluator();

} // namespace fuzz
