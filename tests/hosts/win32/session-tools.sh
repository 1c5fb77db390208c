# For scripts that drive a window: events go through the window system, what comes of them is read from the
# screen and from files. Waits end as soon as the thing is there, so that a busy machine is only slower.

Failures=0

fail() {
    echo "FAILED: $*" >&2
    import -window root "$Work/failure-$Failures.png"
    Failures=$((Failures + 1))
}

# check "what is true" command...
check() {
    sentence=$1
    shift
    if "$@"; then
        echo "ok: $sentence"
    else
        fail "$sentence"
    fi
}

screen() {
    import -window root rgb:- | md5sum
}

# Until the screen stays the same for a moment.
settle() {
    before=
    for attempt in $(seq 60); do
        now=$(screen)
        [ "$now" = "$before" ] && return
        before=$now
        sleep 0.15
    done
}

# act xdotool-arguments...: sends events and waits until the screen has changed and come to rest.
act() {
    start=$(screen)
    xdotool "$@"
    for attempt in $(seq 80); do
        [ "$(screen)" != "$start" ] && break
        sleep 0.1
    done
    [ "$attempt" = 80 ] && echo "note: nothing changed after: $*" >&2
    settle
}

wait_for_file() {
    size=-1
    for attempt in $(seq 150); do
        now=$(stat -c %s "$1" 2>/dev/null || echo 0)
        [ "$now" -gt 0 ] && [ "$now" = "$size" ] && return 0
        size=$now
        sleep 0.1
    done
    return 1
}

# shot NAME: the screen as a picture.
shot() {
    import -window root "$Work/$1.png"
}

# Where a colour lies on the screen: "width height left top" of its box.
box_of() {
    convert "${2:-x:root}" -alpha off -fill black +opaque "$1" -format '%@' info: 2>/dev/null | sed 's/[x+]/ /g'
}

pixel() {    # pixel FILE X Y: red,green,blue
    convert "$1" -alpha off -depth 8 -format "%[fx:int(255*p{$2,$3}.r+0.5)],%[fx:int(255*p{$2,$3}.g+0.5)],%[fx:int(255*p{$2,$3}.b+0.5)]" info:
}
