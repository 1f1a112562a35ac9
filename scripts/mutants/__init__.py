"""Mutants of the sources: finding the places, building all of them at once, and running tests on each."""
