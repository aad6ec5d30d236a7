// A number that grows by one at a time, or goes to 0, taken over into another clock without wrong values between:
// in Gray code one bit changes at a time. Going to 0 may show any smaller number on the way.
module jex_counter_sync #(
    parameter WIDTH = 1
) (
    input wire clk,
    input wire [WIDTH-1:0] number,
    input wire other_clock,
    output wire [WIDTH-1:0] taken_over
);

    reg [WIDTH-1:0] gray = {WIDTH{1'b0}};
    reg [WIDTH-1:0] first = {WIDTH{1'b0}};
    reg [WIDTH-1:0] second = {WIDTH{1'b0}};

    always @(posedge clk) gray <= number ^ (number >> 1);
    always @(posedge other_clock) begin
        first <= gray;
        second <= first;
    end

    genvar i;
    generate
        for (i = 0; i < WIDTH; i = i + 1) begin : bit_of
            assign taken_over[i] = ^(second >> i);
        end
    endgenerate

endmodule
