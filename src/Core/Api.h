#pragma once

// The library is built with hidden visibility; only names marked with this macro form
// the installed API. On ELF, exporting and importing are the same.
#define TERVAN_API __attribute__((visibility("default")))

// Marks a constant whose initialiser runs at load and which other initialisers of the
// library read while it loads (the vocabulary the registry's tables are keyed by): all
// such constants are built before any other initialiser, whatever order the objects are
// linked in.
#define TERVAN_CONSTANT __attribute__((init_priority(200)))
