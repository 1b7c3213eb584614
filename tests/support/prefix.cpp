// Empty: its target holds the precompiled header of the tests.
