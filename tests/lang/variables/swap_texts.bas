10 A$="a":B$="b":SWAP A$,B$:PRINT A$;B$
