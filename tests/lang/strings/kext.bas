10 PRINT KEXT$("Aあｱ漢B",0);"]";KEXT$("Aあｱ漢B",1);"]";KEXT$("",1);"]"
