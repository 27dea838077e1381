// The text forms of lists, under the name of their unit; told in platform/TextForms.h.
#pragma once

#include "platform/TextForms.h"
