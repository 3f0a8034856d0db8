// Marks what the platform's shared library offers to a host and to a pane's module.
#pragma once

#define SPECIALPAGES_PLATFORM_API __attribute__((visibility("default")))
