10 ' A picture that a program stores itself: three planes, line by line.
20 SCREEN 3:CLS 3:DIM A%(40):A%(0)=12:A%(1)=4
30 A%(2)=&HF0FF:A%(6)=&HF0FF:A%(10)=&HF0FF:A%(11)=&HF00F:A%(12)=&HCC33:A%(13)=&H5055
40 PUT@(20,20),A%,PSET:PUT@(40,20),A%(0),PRESET:PUT@(632,20),A%,PSET:PUT@(60,398),A%,PSET
50 A%(20)=3:A%(21)=1:A%(22)=&H40A0:A%(23)=&HFFE0:PUT@(80,20),A%(20),PSET
