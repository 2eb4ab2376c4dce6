// SPDX-License-Identifier: MIT
#include "desktop_actions.h"

#import <AppKit/AppKit.h>

namespace DesktopActions {

void openInTextEditor(const QString& path) {
    NSTask* task = [[NSTask alloc] init];
    task.executableURL = [NSURL fileURLWithPath:@"/usr/bin/open"];
    task.arguments = @[ @"-t", path.toNSString() ];
    [task launchAndReturnError:nil]; // not waited for; a failure is ignored
}

void revealFolder(const QString& path) {
    [[NSWorkspace sharedWorkspace] openURL:[NSURL fileURLWithPath:path.toNSString()
                                                      isDirectory:YES]];
}

bool prefersReducedMotion() {
    return [[NSWorkspace sharedWorkspace] accessibilityDisplayShouldReduceMotion];
}

} // namespace DesktopActions
