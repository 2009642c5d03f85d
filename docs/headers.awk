# Shows Doxygen the plain comments of a header: INPUT_FILTER of docs/Doxyfile.
#
# A comment documents all declarations behind it up to the next empty line, and one behind a declaration adds to that.
# A comment with an empty line behind it is a heading over what follows. Destructors that say nothing, deleted
# operations and hidden members are no part of the reference.

# What stands in quotes, or in an indented block, is shown as it is.
function escaped(text, piece, n, i) {
    if (text ~ /^    /)
        return text
    n = split(text, piece, /"/)
    for (i = 1; i <= n; i += 2)
        gsub(/[\\@<>#%]/, "\\\\&", piece[i])
    text = piece[1]
    for (i = 2; i <= n; ++i)
        text = text "\"" piece[i]
    return text
}

function put(i) {
    for (i = 1; i <= n; ++i)
        print "/// " comment[i]
}

function end_group() {
    if (in_group)
        print "///@}"
    in_group = 0
}

# The first sentence is the name of the group.
function put_heading(i, text, end) {
    end_group()
    for (i = 1; i <= n; ++i)
        text = text comment[i] " "
    end = index(text, ". ")
    print "/// @name " (end ? substr(text, 1, end - 1) : text)
    if (end)
        print "///\n/// " substr(text, end + 2)
    print "///@{"
    in_group = 1
}

function forget() {
    n = used = 0
}

/^ *\/\// {
    if (used)
        forget()
    sub(/^ *\/\/ ?/, "")
    comment[++n] = escaped($0)
    next
}

/^$/ {
    if (n && !used && is_begun)
        put_heading()
    if (is_begun)
        forget()
    print
    next
}

/^#pragma once/ {
    is_begun = 1
    print "/// @file\n///"
    put()
    forget()
    next
}

/= delete;|^ +(struct )?YM_HIDDEN |^ *(virtual )?~.*;$/ {
    next
}

/^(private:|};)/ {
    end_group()
}

{
    code = $0
    behind = match(code, /[;,)}] +\/\/ /)
    if (behind) {
        text = escaped(substr(code, RSTART + RLENGTH))
        code = substr(code, 1, RSTART)
    }
    if (!is_within && code !~ /~/) {
        put()
        used = 1
    }
    print code (behind ? " ///< " text : "")
    is_within = n && code !~ /[;{}]$/
    if (code ~ /{$/)
        forget()
}
