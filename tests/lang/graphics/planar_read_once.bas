10 ' A stored picture is read from its array once; DIM forgets it.
20 DIM A%(20):A%(0)=8:A%(1)=1:A%(2)=255:PUT@(0,0),A%,PSET:A%(2)=0:PUT@(0,0),A%,PSET:PRINT POINT(0,0)
30 DIM A%(20):A%(0)=8:A%(1)=1:PUT@(0,0),A%,PSET:PRINT POINT(0,0)
