#pragma once

// GDI objects that this process holds, stock objects left out or counted alike before and after: compare
// two counts, not one with a number.

unsigned GdiObjectCount();
