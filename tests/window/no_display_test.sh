#!/usr/bin/env bash
# Started where no display is, or a dead one, the editor ends at once with one plain line and no core:
#   no_display_test.sh EDITOR
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM XDG_SESSION_TYPE
failed=0

# expect LINE NAME=VALUE...: what the editor says with those variables
expect() {
  local line=$1 told status
  shift
  told=$(env "$@" timeout 30 "$editor" 2>&1)
  status=$?
  if [ "$told" != "$line" ] || [ $status -ne 1 ]; then
    printf 'With %s: status %s, "%s" in place of "%s"\n' "$*" $status "$told" "$line"
    failed=1
  fi
}

editor=$1
expect 'Dialwright: there is no display to show the window on.' LANG=C
expect 'Dialwright: there is no display to show the window on.' WAYLAND_DISPLAY=wayland-0
expect 'Dialwright: the window cannot be shown on display :4711.' DISPLAY=:4711
exit $failed
