#include <boost/math/distributions.hpp>
#include "core/table.h"
