/// Queries that fail when a test wants it. A program has them when it is linked so that calls of
/// configuration access and of its readers come by here first.
#pragma once

namespace paramgen::testing {

/// Lets the `number`th boolean query of a locked module, or the `number`th look-up of a text by
/// name, from now on fail with -1; 0 ends this.
void FailBoolQuery(int number);
void FailTextQuery(int number);

}  // namespace paramgen::testing
