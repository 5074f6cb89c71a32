10 A$="x":MOUSE 4,1,2,3,A$
