#pragma once

// Every library of the family is built with hidden visibility; only names marked
// with this macro form the installed API. On ELF, exporting and importing are the same.
#define TERVAN_API __attribute__((visibility("default")))
