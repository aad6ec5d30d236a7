// Generate loops, conditions and cases, with and without labels, and arrays of instances.
module cell_ #(parameter N = 1) (input [N-1:0] d, output q);
    wire [N-1:0] inverted = ~d;
    assign q = &inverted;
endmodule

module tree #(parameter DEPTH = 2) (input d, output q);
    generate
        if (DEPTH > 0) begin : branch
            wire left, right;
            tree #(.DEPTH(DEPTH - 1)) l (.d(d), .q(left));
            tree #(.DEPTH(DEPTH - 1)) r (.d(d), .q(right));
            assign q = left | right;
        end else begin : leaf
            wire [DEPTH:0] value = {d};
            assign q = value[0];
        end
    endgenerate
endmodule

module top #(parameter KIND = 2) (input [7:0] d, output [7:0] q, output r);
    genvar i, j;
    generate
        for (i = 0; i < 2; i = i + 1) begin : row
            wire [3:0] partial;
            for (j = 3; j >= 0; j = j - 1) begin : column
                wire here;
                cell_ #(.N(i + 1)) u (.d(d[j+i:j]), .q(here));
                assign partial[j] = here;
                if (j == i) begin : diagonal
                    reg [i+2:1] extra;
                end else begin
                    wire off_diagonal = here;
                end
            end
            assign q[4*i+3:4*i] = partial;
        end
        if (KIND == 2) begin
            wire unlabelled;
        end
        case (KIND)
            1: begin : one wire in_one; end
            2: begin : two wire in_two; end
        endcase
        if (KIND == 0) begin : zero wire in_zero; end
        else begin : otherwise wire in_otherwise; end
        for (i = 5; i < 7; i = i + 1) begin
            wire looped = d[i];
        end
    endgenerate
    cell_ bank [3:0] (.d(d[3:0]), .q());
    tree t (.d(d[0]), .q(r));
endmodule
