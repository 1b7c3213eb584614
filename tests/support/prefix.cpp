// Stands for nothing but the headers that are compiled before all tests.
