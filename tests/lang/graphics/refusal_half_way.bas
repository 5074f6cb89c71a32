10 ' A refused operand of SCREEN leaves what the earlier ones did.
20 SCREEN 0:CLS 3:LINE(0,0)-(639,399),3,B:LINE(50,150)-(300,350),6,BF:SCREEN 3,0,2,0
