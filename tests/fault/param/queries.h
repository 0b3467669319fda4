/// Fault injection: makes queries of the configuration fail. The test program is linked with
/// wrappers around them.
#pragma once

namespace paramgen::testing {

/// Makes the `number`th boolean query of a locked module, look-up of a text by name, or question
/// whether a module exists from now on fail with -1; 0 ends this.
void FailBoolQuery(int number);
void FailTextQuery(int number);
void FailModuleQuery(int number);

}  // namespace paramgen::testing
