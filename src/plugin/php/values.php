<?php

/**
 * Reads a request's JSON body.
 *
 * @param WP_REST_Request $request The request.
 * @return array Its members; none when the body is no JSON object, or is not sent as JSON.
 */
function brasslet_json( $request ) {
	$params = $request->get_json_params();
	return is_array( $params ) ? $params : array();
}

/**
 * Reads a text from a request.
 *
 * @param WP_REST_Request $request The request.
 * @param string          $name    The parameter.
 * @return string Trimmed; empty when the parameter is missing or no text.
 */
function brasslet_param( $request, $name ) {
	return trim( brasslet_string( $request->get_param( $name ) ) );
}

/**
 * Takes a value from outside for a text only when it is one.
 *
 * @param mixed $value Anything.
 * @return string The value, or empty text.
 */
function brasslet_string( $value ) {
	return is_string( $value ) ? $value : '';
}

/**
 * Makes the error that WordPress sends as "code", "message" and "data".
 *
 * @param string $code    The code.
 * @param string $message The sentence that the user sees.
 * @param int    $status  HTTP status code.
 * @return WP_Error
 */
function brasslet_error( $code, $message, $status ) {
	return new WP_Error( $code, $message, array( 'status' => $status ) );
}
