// The 48 x 48 enemies, nose down. KIND chooses, F of N is the frame.
#include "common.inc"
#include "enemies.inc"

#switch (KIND)

// --------------------------------------------------- bombers: acid green
#case (0) // beetle: wing cases open over a glowing bay
  union {
    // legs
    Both(union {
      object { Plate(array[4]{<8,12>,<21,21>,<23,17>,<9,7>}, -2, 1, 0.8) Paint(C_Acid) }
      object { Plate(array[4]{<9,3>,<23.4,1.6>,<23.4,-2.4>,<9,-3>}, -2, 1, 0.8) Paint(C_Acid) }
      object { Plate(array[4]{<8,-7>,<21.6,-16>,<19,-20>,<7,-13>}, -2, 1, 0.8) Paint(C_Acid) }
      rotate z*(6*S1)
    })
    object { Ell(0, 2, 0, 14, 20, 5) Paint(C_AcidD) }
    object { Ell(0, 3, 4.5, 6, 14, 2.5) Glow(C_Yellow, 0.35 + 0.6*P1) }
    #for (I, 0, 4) object { Plate(array[4]{<-6,-7 + 5*I>,<6,-7 + 5*I>,<6,-5.4 + 5*I>,<-6,-5.4 + 5*I>}, 4, 8, 0.4) Paint(C_GunD) } #end
    Both(object { difference { sphere { 0, 1 scale <15, 19.5, 12> } plane { x, 0.5 } plane { -y, -23 } }
      Paint(C_Acid) translate <0,-16,0> rotate z*(3 + 15*P1) translate <0,19,2> translate x*P1 })
    Both(object { Ell(9, 9, 10, 2.6, 4.6, 4) Paint(C_AcidD) rotate z*(-10*P1) translate x*(2*P1) })
    object { SymPlate(array[5]{<0,-9>,<9,-9>,<11,-14>,<5,-20>,<0,-21>}, 2, 9, 2.6) Paint(C_AcidD) }
    Both(object { Eye(5, -14.5, 9, 2.3, C_Red, C_Yellow) })
    Both(object { Plate(array[4]{<2,-19>,<6,-18>,<7,-21>,<3,-23.8>}, 1, 5, 0.8) Metal(C_Bone) })
  }
#break
#case (1) // moth: two pairs of patterned wings
  union {
    Both(union {
      object { Plate(array[6]{<3,2>,<10,19>,<22,23.4>,<23.5,12>,<17,1>,<5,-3>}, 0, 3, 2) Paint(C_Acid) }
      object { Plate(array[4]{<11,14>,<19,19.5>,<20,12>,<14,6>}, 2, 4, 0.8) Paint(C_AcidD) }
      object { Ell(16.6, 13.2, 4, 2.3, 2.3, 1) Glow(C_Yellow, 0.9) }
      rotate y*(-32*P1) rotate z*(-4*P1) })
    Both(union {
      object { Plate(array[5]{<3,-2>,<16,-1>,<21.5,-10>,<15,-19>,<4,-9>}, -1, 1.5, 1.6) Paint(C_AcidD) }
      object { Plate(array[4]{<9,-5>,<16,-6>,<17.5,-10>,<13,-13>}, 1, 2.5, 0.7) Paint(C_Acid) }
      rotate y*(-16 - 16*S1) rotate z*(4 + 4*S1) })
    #for (I, 0, 5)
      object { Ell(0, 17 - 4*I, 3, 3 + 0.35*I, 3, 3.4) Paint((mod(I,2) ? C_Acid : C_AcidD)) }
    #end
    object { Ell(0, -9, 4, 6, 7, 5) Paint(C_AcidD) }
    Both(object { Eye(3, -11.5, 8, 2.2, C_Red, C_Yellow) })
    Both(object { Gun(2.4, -12, -23.8, 3, 1.3) })
  }
#break
#case (2) // quad turret: four barrels around, slowly turning
  #local O = array[1];
  object { Plate(array[12]{<-10,23.8>,<10,23.8>,<11.5,11.5>,<23.8,10>,<23.8,-10>,<11.5,-11.5>,<10,-23.8>,<-10,-23.8>,<-11.5,-11.5>,<-23.8,-10>,<-23.8,10>,<-11.5,11.5>}, -4, 1, 2.6) Paint(C_GunD) }
  Around(object { union { cylinder { <15,0,-3>, <15,0,0>, 4.6 Paint(C_GunDD) } rotate z*45 } }, 4)
  Around(object { Ell(15.5, 0, 1.4, 1.7, 1.7, 1) Glow(C_Red, 0.35 + 0.65*P1) rotate z*45 }, 4)
  Around(object { Plate(array[4]{<13,-5>,<21.8,-7.5>,<21.8,7.5>,<13,5>}, 0, 3, 1.2) Paint(C_Brass) }, 4)
  union {
    Around(object { union { Gun(0, -6, -22.8, 7, 2.6) } }, 4)
    NGon(8, 12.5, 22.5, O)
    object { Plate(O, 3, 10, 2.6) Metal(C_Brass) }
    Around(object { Plate(array[4]{<5,-1.6>,<9.6,-2.4>,<9.6,2.4>,<5,1.6>}, 9, 11, 0.6) Paint(C_GunD) rotate z*45 }, 4)
    rotate z*(90*T)
  }
  Eye(0, 0, 11, 4, C_Red, C_Yellow)
#break
#case (3) // ring mine: a linked ring of charges
  torus { 17, 3 rotate x*90 Metal(C_Gun) }
  union {
    Around(object { union {
      sphere { <18, 0, 2>, 5.8 Paint(C_Plum) }
      cone { <20,0,2>, 3.6, <23.8,0,2>, 0.6 Metal(C_Bone) }
      object { Eye(18, 0, 7.2, 2, C_Red, C_Yellow) }
    } }, 6)
    Around(object { Plate(array[4]{<6,-1.3>,<15,-2>,<15,2>,<6,1.3>}, -1, 2, 0.7) Paint(C_GunD) rotate z*30 }, 3)
    rotate z*(60*T + 30)
  }
  sphere { 0, 1 scale <8.6, 8.6, 7> Paint(C_Plum) }
  Eye(0, 0, 7, 4.2, C_Red, C_Yellow)
#break

// ------------------------------------------------- heavy fighter: violet
#case (4) // lance: long beak, stepped wings
  union {
    Both(object { Plate(array[7]{<3,8>,<10,21>,<20,23.4>,<23.6,12>,<19,-8>,<15,2>,<4,-6>}, 0, 4, 2.6) Paint(C_Violet) })
    Both(object { Plate(array[4]{<12,18.4>,<18.6,19.6>,<20.8,11.6>,<16,6>}, 3, 5, 1) Paint(C_VioletD) })
    Both(object { Plate(array[4]{<4,4>,<9,8>,<12,-3>,<5,-14>}, 2, 6, 1.6) Paint(C_VioletD) })
    object { SymPlate(array[6]{<0,19>,<4,16>,<6.4,4>,<5,-8>,<1.6,-23.6>,<0,-23.8>}, 3, 9, 2.4) Paint(C_Violet) }
    object { SymPlate(array[4]{<0,-8>,<2.4,-9>,<1,-22>,<0,-22.6>}, 8, 10, 0.7) Metal(C_Bone) }
    Eye(0, 3, 9.6, 3, C_Magenta, C_White)
    Both(object { Jet(7, 18, 1, 2.6, -(4 + 3*P1), C_Magenta, C_White) })
    Both(object { Gun(20, 6, -15, 4, 1.6) })
    rotate y*(22*S1)
  }
#break
#case (5) // ring turret: brass iris that opens
  #local O = array[1]; NGon(12, 24.4, 15, O)
  object { Plate(O, -4, 2, 3) Paint(C_GunD) }
  torus { 17.6, 3.4 rotate x*90 scale <1,1,1> translate z*2 Metal(C_Brass) }
  Around(object { Gun(0, -17, -24, 5, 2) rotate z*45 }, 4)
  Around(object { Gun(0, -17, -24, 5, 2) }, 4)
  cylinder { <0,0,0>, <0,0,2.2>, 14.6 Matt(C_Dark) }
  sphere { 0, 1 GlowBall(C_Red, C_Yellow, 0.8 + 0.2*P1) scale <9.8, 9.8, 4> translate z*1 }
  Around(object { Plate(array[4]{<2 + 6*P1,-4>,<15,-8.6>,<15.4,6>,<5 + 5*P1,4.4>}, 4, 6, 1.2) Paint(C_Brass) rotate z*(60*T) }, 6)
#break
#case (6) // slug: an armoured bomb carrier with segments
  union {
    Both(object { Plate(array[6]{<8,20>,<19,22>,<23.4,12>,<23.4,-10>,<18,-18>,<8,-10>}, -2, 3, 2) Paint(C_AcidD) })
    Both(object { Plate(array[4]{<15.5,17>,<20.5,11>,<20.5,-9>,<16,-13>}, 2, 4, 0.8) Paint(C_GunD) })
    Both(union { #for (I, 0, 3) object { Ell(18.2, 11 - 6.4*I, 4, 1.7, 1.7, 1.2) Glow((mod(I + F, 3) = 0 ? C_Yellow : C_Red), (mod(I + F, 3) = 0 ? 1 : 0.45)) } #end })
    #for (I, 0, 5)
      object { Plate(array[6]{<0,24 - 7*I>,<9.5 - 0.3*I + 1.1*sin(2*pi*T + I),21 - 7*I>,<12 - 0.3*I + 1.1*sin(2*pi*T + I),15 - 7*I>,<0,12.4 - 7*I>,<-12 + 0.3*I - 1.1*sin(2*pi*T + I),15 - 7*I>,<-9.5 + 0.3*I - 1.1*sin(2*pi*T + I),21 - 7*I>}, 2 + 0.6*I, 8 + 0.6*I, 2.4) Paint(C_Acid) }
    #end
    object { SymPlate(array[5]{<0,-12>,<7,-13>,<8,-18>,<3.4,-23.6>,<0,-23.8>}, 6, 14, 2.6) Paint(C_AcidD) }
    Both(object { Eye(3.6, -17.2, 14, 1.9, C_Red, C_Yellow) })
  }
#break

// ------------------------------------------------------ carriers: deep red
#case (7) // crab: two claws around a launch bay
  union {
    Both(union {
      object { Plate(array[6]{<13,4>,<20,6>,<23.8,-4>,<21,-16>,<15,-23.6>,<17,-8>}, 0, 6, 2.2) Paint(C_Rust) }
      object { Plate(array[4]{<12,-4>,<15.6,-6>,<14.4,-17>,<10.5,-10>}, 0, 5, 1.4) Metal(C_Bone) }
      rotate z*(-5 - 6*S1) })
    Both(object { Plate(array[5]{<8,14>,<14,23>,<22.6,22>,<21,9>,<12,4>}, -2, 3, 2) Paint(C_RustD) })
    Both(object { Jet(16.6, 18, 3, 3, -(4.4 + 2*S1), C_Amber, C_Yellow) })
    object { SymPlate(array[6]{<0,22>,<8,20>,<15,8>,<14,-4>,<7,-13>,<0,-14>}, 0, 9, 3.4) Paint(C_RustD) }
    object { SymPlate(array[5]{<0,18>,<5,16>,<8,8>,<7,3>,<0,2>}, 8, 11, 1.4) Paint(C_Rust) }
    object { Plate(array[4]{<-6,-0.5>,<6,-0.5>,<4,-10>,<-4,-10>}, 8, 9.6, 0.5) Matt(C_Dark) }
    object { Plate(array[4]{<-5,-1.4>,<5,-1.4>,<3.4,-9>,<-3.4,-9>}, 9, 9.9, 0.2) Glow(C_Amber, 0.35 + 0.65*P1) }
    Both(object { Plate(array[4]{<0.2 + 4*P1,0>,<7,0>,<5,-11>,<0.2 + 3*P1,-11>}, 9.5, 11.5, 0.8) Paint(C_Sand) })
    Eye(0, 10, 11.4, 3.2, C_Amber, C_Yellow)
  }
#break

// ------------------------------------------------------- heavy scout: rust
#case (8) // halberd: a broad axe-head that swings its blades
  union {
    Both(union {
      object { Plate(array[7]{<3,10>,<12,17>,<21,23.6>,<23.8,4>,<20,-16>,<13,-8>,<3,-4>}, 0, 4, 2.6) Paint(C_Rust) }
      object { Plate(array[4]{<19.6,17>,<22,4>,<19,-10>,<17.6,3>}, 3, 5.4, 0.8) Paint(C_Sand) }
      object { Plate(array[4]{<8,10>,<14.5,14.6>,<15,-4>,<9,-3>}, 3, 5, 0.9) Paint(C_RustD) }
      rotate z*(-10*P1) })
    object { SymPlate(array[5]{<0,23.6>,<5,19>,<6.4,2>,<3.4,-16>,<0,-23.8>}, 2, 8, 2.6) Paint(C_RustD) }
    object { SymPlate(array[4]{<0,-2>,<3,-5>,<1.6,-17>,<0,-21>}, 7, 9.4, 0.8) Paint(C_Sand) }
    Eye(0, 5, 8.6, 3.2, C_Amber, C_Yellow)
    Jet(0, 19, 3, 3, -(3 + 2*P1), C_Amber, C_Yellow)
  }
#break
#end
