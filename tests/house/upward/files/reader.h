#include "core/table.h"
#include <boost/math/distributions.hpp>
