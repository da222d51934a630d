// Gives the precompiled header a target to be compiled in.
