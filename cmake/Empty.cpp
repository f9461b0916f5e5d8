// A library that only carries precompiled headers needs a file.
